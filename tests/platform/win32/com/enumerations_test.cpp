#include "platform/win32/com/enumerations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/native_dispatch.h"
#include "tests/platform/win32/com/fake_dispatch.h"
#include "tests/platform/win32/com/native_thing.h"

namespace quorel::win32::testing {
namespace {

using automation::make;
using automation::Object;
using automation::Value;

std::vector<Value> numbers(std::int32_t count) {
    std::vector<Value> items;
    for (std::int32_t i = 0; i < count; ++i)
        items.emplace_back(i);
    return items;
}

/// A collection of somebody else's that answers `For Each`, and counts how it is read.
class FakeItems final : public ComObject<IEnumVARIANT> {
  public:
    FakeItems(std::vector<ComPtr<IDispatch>> items, int failAfter = -1, std::size_t numberAt = SIZE_MAX)
        : items_(std::move(items)), failAfter_(failAfter), numberAt_(numberAt) {}
    int calls = 0;

    STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override {
        ++calls;
        if (failAfter_ >= 0 && position_ >= static_cast<std::size_t>(failAfter_))
            return E_FAIL;
        ULONG filled = 0;
        for (; filled < count && position_ < items_.size(); ++filled, ++position_) {
            if (position_ == numberAt_) {
                V_VT(&values[filled]) = VT_I4;
                V_I4(&values[filled]) = 7;
                continue;
            }
            V_VT(&values[filled]) = VT_DISPATCH;
            V_DISPATCH(&values[filled]) = ComPtr<IDispatch>(items_[position_]).detach();
        }
        *fetched = filled;
        return filled == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

  private:
    std::vector<ComPtr<IDispatch>> items_;
    int failAfter_;
    std::size_t numberAt_;
    std::size_t position_ = 0;
};

Object collectionOf(const ComPtr<FakeItems>& items) {
    return fromDispatch(fake([items](FakeDispatch::Call& call) {
                            if (call.id != DISPID_NEWENUM)
                                return DISP_E_MEMBERNOTFOUND;
                            V_VT(call.result) = VT_UNKNOWN;
                            V_UNKNOWN(call.result) = ComPtr<FakeItems>(items).detach();
                            return S_OK;
                        }).get());
}

TEST(Enumerations, HostsReadNativeCollectionsInAnyBatch) {
    const auto dispatch = toDispatch(make<NativeList>(numbers(150)));
    DISPPARAMS none{};
    Variant result;
    ASSERT_EQ(
        dispatch->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD, &none, result.out(), nullptr, nullptr),
        S_OK);
    const auto items = ComPtr<IUnknown>(V_UNKNOWN(result.get())).as<IEnumVARIANT>();
    ASSERT_TRUE(items);
    std::array<Variant, 100> batch;
    ULONG fetched = 0;
    EXPECT_EQ(items->Next(100, batch[0].get(), &fetched), S_OK);
    EXPECT_EQ(fetched, 100U);
    EXPECT_EQ(V_I4(batch[99].get()), 99);
    EXPECT_EQ(items->Next(100, batch[0].get(), &fetched), S_FALSE);
    EXPECT_EQ(fetched, 50U);
    EXPECT_EQ(V_I4(batch[49].get()), 149);
    EXPECT_EQ(items->Next(1, batch[0].get(), &fetched), S_FALSE);
    EXPECT_EQ(fetched, 0U);
}

TEST(Enumerations, ResetSkipAndCloneKeepThePosition) {
    const auto items = enumerationOf(Object(make<NativeList>(numbers(10))));
    Variant value;
    EXPECT_EQ(items->Skip(4), S_OK);
    ComPtr<IEnumVARIANT> clone;
    ASSERT_EQ(items->Clone(clone.out()), S_OK);
    EXPECT_EQ(clone->Next(1, value.get(), nullptr), S_OK);
    EXPECT_EQ(V_I4(value.get()), 4);
    EXPECT_EQ(items->Skip(7), S_FALSE);
    EXPECT_EQ(items->Reset(), S_OK);
    EXPECT_EQ(items->Next(1, value.get(), nullptr), S_OK);
    EXPECT_EQ(V_I4(value.get()), 0);
    EXPECT_EQ(items->Next(2, value.get(), nullptr), E_POINTER);
}

TEST(Enumerations, NoCollectionIsError451) {
    const auto dispatch = toDispatch(make<NativeThing>());
    DISPPARAMS none{};
    EXCEPINFO failure{};
    Variant result;
    EXPECT_EQ(dispatch->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, result.out(),
                               &failure, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(failure.scode, static_cast<SCODE>(0x800A01C3));
    ::SysFreeString(failure.bstrDescription);
    ::SysFreeString(failure.bstrSource);
    try {
        static_cast<void>(fromDispatch(fake().get()).enumerate());
        FAIL();
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 451);
    }
}

TEST(Enumerations, EnumerationsCountAsHeldOutside) {
    const long before = outsideCount();
    auto items = enumerationOf(Object(make<NativeList>(numbers(1))));
    EXPECT_EQ(outsideCount(), before + 1);
    items.reset();
    EXPECT_EQ(outsideCount(), before);
}

TEST(Enumerations, ForeignCollectionsAreReadInBatches) {
    const int alive = FakeDispatch::alive();
    {
        std::vector<ComPtr<IDispatch>> objects;
        for (int i = 0; i < 200; ++i)
            objects.emplace_back(fake().get());
        const auto items = makeCom<FakeItems>(objects);
        std::size_t position = 0;
        for (const Object& object : automation::each(collectionOf(items)))
            EXPECT_EQ(object.identity(), objects[position++].get());
        EXPECT_EQ(position, 200U);
        EXPECT_LE(items->calls, 5);
    }
    EXPECT_EQ(FakeDispatch::alive(), alive);
}

TEST(Enumerations, AFailureInTheMiddleIsThrown) {
    std::vector<ComPtr<IDispatch>> objects(100, ComPtr<IDispatch>(fake().get()));
    const auto items = makeCom<FakeItems>(objects, 64);
    int seen = 0;
    const auto readAll = [&] {
        for ([[maybe_unused]] const Object& object : automation::each(collectionOf(items)))
            ++seen;
    };
    EXPECT_THROW(readAll(), automation::Error);
    EXPECT_EQ(seen, 64);
}

TEST(Enumerations, ObjectsAreReadWithoutValues) {
    const int alive = FakeDispatch::alive();
    {
        std::vector<ComPtr<IDispatch>> objects(100);
        for (std::size_t i = 1; i < objects.size(); ++i)
            objects[i] = ComPtr<IDispatch>(fake().get());
        const Object collection = collectionOf(makeCom<FakeItems>(objects));
        const auto source = collection.enumerate();
        std::vector<Object> read(150);
        std::size_t filled = 0;
        source->nextObjects(read, filled);
        ASSERT_EQ(filled, 100U);
        EXPECT_FALSE(read[0]);
        EXPECT_EQ(read[99].identity(), objects[99].get());
    }
    EXPECT_EQ(FakeDispatch::alive(), alive);
}

TEST(Enumerations, AnElementThatIsNoObjectEndsTheObjectsBeforeIt) {
    const int alive = FakeDispatch::alive();
    {
        std::vector<ComPtr<IDispatch>> objects;
        for (int i = 0; i < 10; ++i)
            objects.emplace_back(fake().get());
        const Object collection = collectionOf(makeCom<FakeItems>(objects, -1, 4));
        const auto source = collection.enumerate();
        std::vector<Object> read(10);
        std::size_t filled = 0;
        EXPECT_THROW(source->nextObjects(read, filled), automation::Error);
        EXPECT_EQ(filled, 4U);
    }
    EXPECT_EQ(FakeDispatch::alive(), alive);
}

}  // namespace
}  // namespace quorel::win32::testing

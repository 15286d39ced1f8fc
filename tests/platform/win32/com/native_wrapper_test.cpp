#include <gtest/gtest.h>

#include "platform/win32/com/bridge.h"
#include "platform/win32/com/native_dispatch.h"
#include "tests/platform/win32/com/fake_dispatch.h"
#include "tests/platform/win32/com/native_thing.h"

namespace quorel::win32::testing {
namespace {

using automation::make;
using automation::NativeObject;
using automation::Object;

TEST(NativeWrapper, OneWrapperPerObject) {
    const auto thing = make<NativeThing>();
    const auto first = toDispatch(thing);
    const auto second = toDispatch(Object(thing));
    EXPECT_EQ(first.get(), second.get());
    EXPECT_NE(toDispatch(make<NativeThing>()).get(), first.get());
}

TEST(NativeWrapper, ComesBackUnwrapped) {
    const auto thing = make<NativeThing>();
    const auto dispatch = toDispatch(thing);
    const Object back = fromDispatch(dispatch.get());
    EXPECT_EQ(back.native(), thing.get());
    EXPECT_EQ(back, Object(thing));
    const auto unknown = dispatch.as<IUnknown>();
    VARIANT variant{};
    V_VT(&variant) = VT_UNKNOWN;
    V_UNKNOWN(&variant) = unknown.get();
    EXPECT_EQ(fromVariant(variant).toObject().native(), thing.get());
}

TEST(NativeWrapper, KeepsTheObjectAliveAndGoesWithTheLastReference) {
    const long outside = outsideCount();
    const auto live = NativeObject::liveCount();
    ComPtr<IDispatch> dispatch = toDispatch(make<NativeThing>());
    EXPECT_EQ(outsideCount(), outside + 1);
    EXPECT_EQ(NativeObject::liveCount(), live + 1);
    dispatch.reset();
    EXPECT_EQ(outsideCount(), outside);
    EXPECT_EQ(NativeObject::liveCount(), live);
}

TEST(NativeWrapper, IsMadeAgainAfterItWent) {
    const auto thing = make<NativeThing>();
    toDispatch(thing).reset();
    EXPECT_EQ(thing->bridge(), nullptr);
    EXPECT_TRUE(toDispatch(thing));
}

TEST(NativeWrapper, HasOneIdentity) {
    const auto dispatch = toDispatch(make<NativeThing>());
    const auto unknown = dispatch.as<IUnknown>();
    const auto support = dispatch.as<ISupportErrorInfo>();
    ASSERT_TRUE(support);
    EXPECT_EQ(support.as<IUnknown>().get(), unknown.get());
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
    EXPECT_FALSE(dispatch.as<IStream>());
}

TEST(NativeWrapper, ForeignObjectsPassAsTheyAre) {
    const auto object = fake();
    const Object reference = fromDispatch(object.get());
    EXPECT_EQ(reference.native(), nullptr);
    EXPECT_EQ(toDispatch(reference).get(), static_cast<IDispatch*>(object.get()));
    EXPECT_FALSE(toDispatch(Object()));
    EXPECT_FALSE(fromDispatch(nullptr));
}

/// Takes hold of its own wrapper once more while it ends, as a component does that tells its host of its end.
class LastWords final : public NativeObject {
  public:
    LastWords(IDispatch*& wrapper, ComPtr<IDispatch>& held) : wrapper_(wrapper), held_(held) {}
    ~LastWords() override { held_ = ComPtr<IDispatch>(wrapper_); }
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<LastWords>(u"LastWords").method(u"Say", &LastWords::say);
        return table;
    }
    void say() {}

  private:
    IDispatch*& wrapper_;
    ComPtr<IDispatch>& held_;
};

TEST(NativeWrapper, TakenHoldOfWhileItEndsItIsDisconnected) {
    const long outside = outsideCount();
    IDispatch* wrapper = nullptr;
    ComPtr<IDispatch> held;
    ComPtr<IDispatch> dispatch = toDispatch(make<LastWords>(wrapper, held));
    wrapper = dispatch.get();
    dispatch.reset();
    ASSERT_TRUE(held);
    wchar_t say[] = L"Say";
    LPOLESTR name = say;
    DISPID id = DISPID_UNKNOWN;
    DISPPARAMS none{};
    EXPECT_EQ(held->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(held->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(fromDispatch(held.get()).native(), nullptr);
    EXPECT_EQ(outsideCount(), outside + 1);
    held.reset();
    EXPECT_EQ(outsideCount(), outside);
}

TEST(NativeWrapper, DescribesNoTypeOfItsOwn) {
    const auto dispatch = toDispatch(make<NativeThing>());
    UINT count = 9;
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(dispatch->GetTypeInfo(0, 0, info.out()), E_NOTIMPL);
    EXPECT_EQ(dispatch->GetTypeInfo(1, 0, info.out()), DISP_E_BADINDEX);
}

}  // namespace
}  // namespace quorel::win32::testing

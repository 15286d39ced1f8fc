#include "platform/win32/com/type_keys.h"

#include <dispex.h>
#include <gtest/gtest.h>

#include <vector>

#include "platform/automation/calls.h"
#include "platform/win32/com/bridge.h"
#include "tests/platform/win32/com/fake_dispatch.h"

namespace quorel::win32::testing {
namespace {

using automation::Member;
using automation::MemberId;
using automation::Object;

/// A description of some type, a new one each time.
ComPtr<ITypeInfo> newTypeInfo() {
    METHODDATA method{};
    static wchar_t name[] = L"Member";
    method.szName = name;
    method.dispid = 5;
    method.cc = CC_STDCALL;
    method.wFlags = DISPATCH_METHOD;
    method.vtReturn = VT_EMPTY;
    INTERFACEDATA data{&method, 1};
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(::CreateDispTypeInfo(&data, 0, info.out()), S_OK);
    return info;
}

ComPtr<FakeDispatch> typed(const ComPtr<ITypeInfo>& info) {
    auto object = fake();
    object->info = info;
    return object;
}

TEST(TypeKeys, ObjectsOfOneTypeHaveOneKey) {
    const auto info = newTypeInfo();
    const void* key = typeKeyOf(*typed(info).get());
    EXPECT_NE(key, nullptr);
    EXPECT_EQ(typeKeyOf(*typed(info).get()), key);
    EXPECT_NE(typeKeyOf(*typed(newTypeInfo()).get()), key);
}

TEST(TypeKeys, ObjectsThatDescribeNothingProveNothing) {
    EXPECT_EQ(typeKeyOf(*fake().get()), nullptr);
}

TEST(TypeKeys, AKeyIsNeverGivenToAnotherType) {
    std::vector<const void*> keys;
    for (int i = 0; i < 100; ++i)
        keys.push_back(typeKeyOf(*typed(newTypeInfo()).get()));
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (std::size_t j = i + 1; j < keys.size(); ++j)
            ASSERT_NE(keys[i], keys[j]);
    }
}

/// Can grow members of its own.
class GrowingDispatch final : public FakeDispatch {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        if (iid != __uuidof(IDispatchEx))
            return FakeDispatch::QueryInterface(iid, result);
        AddRef();
        *result = static_cast<IDispatch*>(this);
        return S_OK;
    }
};

TEST(TypeKeys, ObjectsThatGrowMembersProveNothing) {
    const auto object = makeCom<GrowingDispatch>();
    object->info = newTypeInfo();
    EXPECT_EQ(typeKeyOf(*object.get()), nullptr);
    EXPECT_EQ(typeKeyOf(*object.get()), nullptr);
}

TEST(TypeKeys, NamesAreResolvedOncePerProvenType) {
    const auto info = newTypeInfo();
    const auto first = typed(info);
    const auto second = typed(info);
    const auto untyped = fake();
    first->names = second->names = {{L"Member", 5}};
    untyped->names = {{L"Member", 6}};
    const Member member(u"Member");
    EXPECT_EQ(member.idFor(fromDispatch(first.get())), static_cast<MemberId>(5));
    EXPECT_EQ(member.idFor(fromDispatch(second.get())), static_cast<MemberId>(5));
    EXPECT_EQ(second->namesAsked, 0);
    EXPECT_EQ(member.idFor(fromDispatch(untyped.get())), static_cast<MemberId>(6));
    EXPECT_EQ(member.idFor(fromDispatch(untyped.get())), static_cast<MemberId>(6));
    EXPECT_EQ(untyped->namesAsked, 2);
}

}  // namespace
}  // namespace quorel::win32::testing

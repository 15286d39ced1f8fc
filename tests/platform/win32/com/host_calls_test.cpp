// Calls of native members as hosts make them.

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/win32/com/bridge.h"
#include "platform/win32/com/variants.h"
#include "tests/platform/win32/com/fake_dispatch.h"
#include "tests/platform/win32/com/native_thing.h"

namespace quorel::win32::testing {
namespace {

using automation::Object;
using automation::Value;

constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

class HostCalls : public ::testing::Test {
  protected:
    /// In call order.
    HRESULT invoke(const wchar_t* name, WORD flags, std::vector<VARIANT> arguments,
                   std::vector<DISPID> named = {}) {
        DISPID id = DISPID_UNKNOWN;
        auto* text = const_cast<wchar_t*>(name);
        const HRESULT status = dispatch->GetIDsOfNames(IID_NULL, &text, 1, 0, &id);
        return FAILED(status) ? status : invokeId(id, flags, std::move(arguments), std::move(named));
    }
    HRESULT invokeId(DISPID id, WORD flags, std::vector<VARIANT> arguments, std::vector<DISPID> named = {}) {
        std::reverse(arguments.begin(), arguments.end());
        if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0)
            named = {DISPID_PROPERTYPUT};
        DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                              static_cast<UINT>(named.size())};
        failure = {};
        return dispatch->Invoke(id, IID_NULL, 0, flags, &parameters, result.out(), &failure, nullptr);
    }
    void expectError(HRESULT status, std::int32_t number) {
        EXPECT_EQ(status, DISP_E_EXCEPTION);
        EXPECT_EQ(failure.scode, static_cast<SCODE>(0x800A0000 + number));
        EXPECT_NE(failure.bstrDescription, nullptr);
        EXPECT_NE(failure.bstrSource, nullptr);
        ::SysFreeString(failure.bstrDescription);
        ::SysFreeString(failure.bstrSource);
        failure = {};
    }
    VARIANT text(std::u16string_view value) {
        strings.push_back(makeBstr(value));
        VARIANT variant{};
        V_VT(&variant) = VT_BSTR;
        V_BSTR(&variant) = strings.back().get();
        return variant;
    }
    static VARIANT number(LONG value) {
        VARIANT variant{};
        V_VT(&variant) = VT_I4;
        V_I4(&variant) = value;
        return variant;
    }
    static VARIANT objectArgument(IDispatch* value) {
        VARIANT variant{};
        V_VT(&variant) = VT_DISPATCH;
        V_DISPATCH(&variant) = value;
        return variant;
    }
    static VARIANT omitted() {
        VARIANT variant{};
        V_VT(&variant) = VT_ERROR;
        V_ERROR(&variant) = DISP_E_PARAMNOTFOUND;
        return variant;
    }
    static VARIANT variable(Variant& holder) {
        VARIANT variant{};
        V_VT(&variant) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&variant) = holder.get();
        return variant;
    }
    std::u16string resultText() { return fromVariant(*result).toString(); }

    automation::Ref<NativeThing> thing = automation::make<NativeThing>();
    ComPtr<IDispatch> dispatch = toDispatch(thing);
    Variant result;
    EXCEPINFO failure{};
    std::vector<Bstr> strings;
};

TEST_F(HostCalls, LeftOutArgumentsTakeTheirDefaults) {
    EXPECT_EQ(invoke(L"Describe", kCall, {text(u"a")}), S_OK);
    EXPECT_EQ(resultText(), u"a,7,nothing");
    EXPECT_EQ(invoke(L"describe", DISPATCH_METHOD, {text(u"a"), omitted(), objectArgument(dispatch.get())}),
              S_OK);
    EXPECT_EQ(resultText(), u"a,7,object");
}

TEST_F(HostCalls, ATextThatIsKeptOutlivesTheCallersOwn) {
    const VARIANT given = text(u"longer than a few letters");
    EXPECT_EQ(invoke(L"Keep", kCall, {given}), S_OK);
    std::fill_n(V_BSTR(&given), ::SysStringLen(V_BSTR(&given)), L'#');
    strings.clear();
    EXPECT_EQ(thing->kept.text(), u"longer than a few letters");
    EXPECT_EQ(invoke(L"Keep", kCall, {}), S_OK);
    EXPECT_EQ(thing->kept.text(), u"");
    EXPECT_EQ(invoke(L"Echo", kCall, {text(u"echo")}), S_OK);
    strings.clear();
    EXPECT_EQ(resultText(), u"echo");
}

TEST_F(HostCalls, NamedArgumentsFindTheirPlaces) {
    wchar_t method[] = L"Describe";
    wchar_t third[] = L"THIRD";
    wchar_t first[] = L"first";
    LPOLESTR names[] = {method, third, first};
    DISPID ids[3];
    ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 3, 0, ids), S_OK);
    // Named arguments come in the order of their ids in the call, here: first, third.
    VARIANT given[] = {text(u"x"), objectArgument(dispatch.get())};
    DISPID places[] = {ids[2], ids[1]};
    DISPPARAMS parameters{given, places, 2, 2};
    ASSERT_EQ(dispatch->Invoke(ids[0], IID_NULL, 0, kCall, &parameters, result.out(), &failure, nullptr),
              S_OK);
    EXPECT_EQ(resultText(), u"x,7,object");
}

TEST_F(HostCalls, UnknownArgumentNamesAreReported) {
    wchar_t method[] = L"Describe";
    wchar_t fifth[] = L"fifth";
    LPOLESTR names[] = {method, fifth};
    DISPID ids[2];
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_GT(ids[0], 0);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
    EXPECT_EQ(invoke(L"Describe", kCall, {text(u"a")}, {-9}), DISP_E_PARAMNOTFOUND);
}

TEST_F(HostCalls, UnknownMembersAreReported) {
    EXPECT_EQ(invoke(L"Nothing", kCall, {}), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(invokeId(999, kCall, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invokeId(DISPID_VALUE, kCall, {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(L"Describe", DISPATCH_PROPERTYPUT, {number(1)}), DISP_E_MEMBERNOTFOUND);
}

TEST_F(HostCalls, WrongCountsAndTypesAreErrors) {
    expectError(invoke(L"Describe", kCall, {text(u"a"), number(1), number(2), number(3)}), 450);
    expectError(invoke(L"Describe", kCall, {}), 450);
    expectError(invoke(L"Describe", kCall, {omitted(), number(1)}), 449);
    expectError(invoke(L"Describe", kCall, {text(u"a"), number(1), number(2)}), 13);
    expectError(invoke(L"Fail", kCall, {text(u"no number")}), 13);
}

TEST_F(HostCalls, ErrorsCarryNumberDescriptionAndSource) {
    EXPECT_EQ(invoke(L"Fail", kCall, {number(91)}), DISP_E_EXCEPTION);
    EXPECT_EQ(failure.scode, static_cast<SCODE>(0x800A005B));
    EXPECT_EQ(viewOf(failure.bstrDescription), u"it failed");
    EXPECT_EQ(viewOf(failure.bstrSource), u"NativeThing");
    expectError(DISP_E_EXCEPTION, 91);

    EXPECT_EQ(invoke(L"Fail", kCall, {number(static_cast<LONG>(0x80070005))}), DISP_E_EXCEPTION);
    EXPECT_EQ(failure.scode, static_cast<SCODE>(0x80070005));
    ::SysFreeString(failure.bstrDescription);
    ::SysFreeString(failure.bstrSource);

    expectError(invoke(L"BreakDown", kCall, {}), 51);
}

TEST_F(HostCalls, AHostWithoutExcepInfoGetsTheStatus) {
    DISPID id = DISPID_UNKNOWN;
    wchar_t name[] = L"BreakDown";
    LPOLESTR names = name;
    ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), S_OK);
    DISPPARAMS none{};
    EXPECT_EQ(dispatch->Invoke(id, IID_NULL, 0, kCall, &none, nullptr, nullptr, nullptr),
              static_cast<HRESULT>(0x800A0033));
}

TEST_F(HostCalls, ResultsNobodyWantsAreDropped) {
    DISPPARAMS none{};
    DISPID id = DISPID_UNKNOWN;
    wchar_t name[] = L"Items";
    LPOLESTR names = name;
    ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), S_OK);
    const auto before = automation::NativeObject::liveCount();
    EXPECT_EQ(dispatch->Invoke(id, IID_NULL, 0, kCall, &none, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

TEST_F(HostCalls, SurplusArgumentsGoToTheDefaultMember) {
    EXPECT_EQ(invoke(L"Items", kCall, {number(1)}), S_OK);
    EXPECT_EQ(resultText(), u"one");
    expectError(invoke(L"Items", kCall, {number(3)}), 9);
}

TEST_F(HostCalls, PropertiesAreReadAndWrittenHoweverTheLanguageAsks) {
    EXPECT_EQ(invoke(L"Title", DISPATCH_PROPERTYPUT, {text(u"put")}), S_OK);
    EXPECT_EQ(thing->title, u"put");
    EXPECT_EQ(invoke(L"Title", DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF, {text(u"both")}), S_OK);
    EXPECT_EQ(invoke(L"Title", DISPATCH_PROPERTYGET, {}), S_OK);
    EXPECT_EQ(resultText(), u"both");
    EXPECT_EQ(invoke(L"Title", DISPATCH_METHOD, {}), S_OK);
    EXPECT_EQ(resultText(), u"both");

    for (const WORD flags : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF},
                             WORD{DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}}) {
        thing->partner = {};
        EXPECT_EQ(invoke(L"Partner", flags, {objectArgument(dispatch.get())}), S_OK);
        EXPECT_EQ(thing->partner, Object(thing));
    }
    thing->partner = {};
    expectError(invoke(L"Title", DISPATCH_PROPERTYPUTREF, {objectArgument(dispatch.get())}), 438);
    expectError(invoke(L"Partner", DISPATCH_PROPERTYPUT, {number(1)}), 13);
}

TEST_F(HostCalls, PutsByReferenceAreRead) {
    Variant holder;
    toVariant(Value(u"from a variable"), *holder);
    EXPECT_EQ(invoke(L"Title", DISPATCH_PROPERTYPUT, {variable(holder)}), S_OK);
    EXPECT_EQ(thing->title, u"from a variable");
}

TEST_F(HostCalls, MembersOfTheObjectItselfAnswerByName) {
    EXPECT_EQ(invoke(L"propcolour", DISPATCH_PROPERTYPUT, {text(u"red")}), S_OK);
    EXPECT_EQ(invoke(L"PropColour", kCall, {}), S_OK);
    EXPECT_EQ(resultText(), u"red");
}

TEST_F(HostCalls, VariablesReceiveWhatTheMemberChanged) {
    Variant string, object, integer, flag;
    toVariant(Value(u"hey"), *string);
    toVariant(Value(4), *integer);
    toVariant(Value(true), *flag);
    EXPECT_EQ(
        invoke(L"Change", kCall, {variable(string), variable(object), variable(integer), variable(flag)}),
        S_OK);
    EXPECT_EQ(*fromVariant(*string).text(), u"hey!");
    EXPECT_EQ(fromVariant(*object).toObject(), Object(thing));
    EXPECT_EQ(*fromVariant(*integer).getIf<std::int32_t>(), 5);
    EXPECT_EQ(*fromVariant(*flag).getIf<bool>(), false);
}

TEST_F(HostCalls, TypedVariablesReceiveWhatTheMemberChanged) {
    BSTR string = makeBstr(u"typed").release();
    IDispatch* object = nullptr;
    SHORT integer = 8;
    VARIANT_BOOL flag = VARIANT_FALSE;
    std::vector<VARIANT> given(4);
    V_VT(&given[0]) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&given[0]) = &string;
    V_VT(&given[1]) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&given[1]) = &object;
    V_VT(&given[2]) = VT_BYREF | VT_I2;
    V_I2REF(&given[2]) = &integer;
    V_VT(&given[3]) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&given[3]) = &flag;
    EXPECT_EQ(invoke(L"Change", kCall, given), S_OK);
    EXPECT_EQ(viewOf(string), u"typed!");
    EXPECT_EQ(object, dispatch.get());
    EXPECT_EQ(integer, 9);
    EXPECT_EQ(flag, VARIANT_TRUE);
    ::SysFreeString(string);
    object->Release();
}

TEST_F(HostCalls, VariablesThatWereOnlyLookedAtKeepTheirTypes) {
    Variant string, object, integer, flag;
    V_VT(integer.get()) = VT_I2;
    V_I2(integer.get()) = 3;
    EXPECT_EQ(invoke(L"Look", kCall, {variable(string), variable(object), variable(integer), variable(flag)}),
              S_OK);
    EXPECT_EQ(V_VT(string.get()), VT_EMPTY);
    EXPECT_EQ(V_VT(object.get()), VT_EMPTY);
    EXPECT_EQ(V_VT(integer.get()), VT_I2);
    EXPECT_EQ(V_VT(flag.get()), VT_EMPTY);
}

TEST_F(HostCalls, AFailedCallChangesNoVariable) {
    Variant string;
    toVariant(Value(u"kept"), *string);
    Variant object, integer, flag;
    toVariant(Value(u"not a number"), *integer);
    expectError(
        invoke(L"Change", kCall, {variable(string), variable(object), variable(integer), variable(flag)}),
        13);
    EXPECT_EQ(*fromVariant(*string).text(), u"kept");
}

}  // namespace
}  // namespace quorel::win32::testing

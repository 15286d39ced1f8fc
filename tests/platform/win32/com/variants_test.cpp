#include "platform/win32/com/variants.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/win32/com/bridge.h"
#include "tests/platform/win32/com/fake_dispatch.h"

namespace quorel::win32::testing {
namespace {

using automation::Array;
using automation::Bytes;
using automation::Date;
using automation::Error;
using automation::Object;
using automation::Value;
using automation::ValueKind;

Value thereAndBack(const Value& value) {
    Variant variant;
    toVariant(value, *variant);
    return fromVariant(*variant);
}

std::int32_t errorOf(const VARIANT& variant) {
    try {
        static_cast<void>(fromVariant(variant));
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

// Inlined, it makes GCC see an object's memory read as a string's.
[[gnu::noinline]] Value taken(VARIANT& variant) {
    return takeVariant(variant);
}

TEST(Variants, EveryKindGoesThereAndBack) {
    EXPECT_TRUE(thereAndBack(Value()).isEmpty());
    EXPECT_TRUE(thereAndBack(Value::null()).isNull());
    EXPECT_TRUE(thereAndBack(Value::missing()).isMissing());
    EXPECT_TRUE(*thereAndBack(Value(true)).getIf<bool>());
    EXPECT_EQ(*thereAndBack(Value(-7)).getIf<std::int32_t>(), -7);
    EXPECT_EQ(*thereAndBack(Value(2.5)).getIf<double>(), 2.5);
    EXPECT_EQ(thereAndBack(Value(Date{37318.5})).getIf<Date>()->serial, 37318.5);
    EXPECT_EQ(thereAndBack(Value::error(2000)).getIf<Value::ErrorValue>()->number, 2000);
    EXPECT_EQ(thereAndBack(Value::nothing()).kind(), ValueKind::Object);
}

TEST(Variants, StringsTravelUnharmed) {
    const std::u16string nul(u"a\0b", 3);
    const std::u16string lone{u'x', 0xD800, u'y', 0xDC00};
    const std::u16string mega(1 << 20, u'm');
    for (const std::u16string& text :
         {std::u16string(), nul, lone, mega, std::u16string(u"\u05D0\U0001F600")})
        EXPECT_EQ(*thereAndBack(Value(text)).text(), text);
}

TEST(Variants, StringsOfThePlatformAreTakenAndGivenBackAsTheyAre) {
    Variant given;
    toVariant(Value(u"not copied"), *given);
    BSTR const text = V_BSTR(given.get());
    Value value = taken(*given);
    EXPECT_EQ(V_VT(given.get()), VT_EMPTY);
    EXPECT_EQ(*value.text(), u"not copied");
    EXPECT_EQ(reinterpret_cast<const wchar_t*>(value.text()->data()), text);

    Variant copied;
    toVariant(value, *copied);
    EXPECT_NE(V_BSTR(copied.get()), text);
    EXPECT_EQ(viewOf(V_BSTR(copied.get())), u"not copied");

    Variant back;
    toVariant(std::move(value), *back);
    EXPECT_EQ(V_VT(back.get()), VT_BSTR);
    EXPECT_EQ(V_BSTR(back.get()), text);
    EXPECT_EQ(viewOf(V_BSTR(back.get())), u"not copied");
}

TEST(Variants, StringsOfOthersAreGivenAsCopies) {
    Variant given;
    toVariant(Value(u"a text of a variable"), *given);
    const Value original = taken(*given);
    Value copy(original);
    Variant back;
    toVariant(std::move(copy), *back);
    EXPECT_EQ(viewOf(V_BSTR(back.get())), u"a text of a variable");
    EXPECT_EQ(*original.text(), u"a text of a variable");
}

TEST(Variants, TakingANullStringGivesTheEmptyText) {
    Variant null;
    V_VT(null.get()) = VT_BSTR;
    Value value = taken(*null);
    EXPECT_EQ(*value.text(), u"");
    Variant back;
    toVariant(std::move(value), *back);
    EXPECT_EQ(V_VT(back.get()), VT_BSTR);
    EXPECT_EQ(viewOf(V_BSTR(back.get())), u"");
}

TEST(Variants, NullStringIsEmptyString) {
    VARIANT variant{};
    V_VT(&variant) = VT_BSTR;
    EXPECT_EQ(*fromVariant(variant).text(), u"");
}

TEST(Variants, BytesKeepTheirLowerBound) {
    const Bytes bytes{{0, 15, 255}, 5};
    EXPECT_EQ(*thereAndBack(Value(bytes)).getIf<Bytes>(), bytes);
    EXPECT_EQ(*thereAndBack(Value(Bytes{})).getIf<Bytes>(), Bytes{});
}

TEST(Variants, ArraysKeepElementsAndLowerBound) {
    const Value value = thereAndBack(Value(Array{{Value(1), Value(u"two"), Value()}, 3}));
    const auto* array = value.getIf<Array>();
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array->lowerBound, 3);
    ASSERT_EQ(array->items.size(), 3U);
    EXPECT_EQ(*array->items[1].text(), u"two");
}

TEST(Variants, NumbersOfEverySizeBecomeIntegersWhereTheyFit) {
    const auto number = [](VARTYPE type, LONGLONG bits) {
        VARIANT variant{};
        V_VT(&variant) = type;
        V_I8(&variant) = bits;
        return fromVariant(variant);
    };
    EXPECT_EQ(*number(VT_I2, 0xFFFF).getIf<std::int32_t>(), -1);
    EXPECT_EQ(*number(VT_UI2, 0xFFFF).getIf<std::int32_t>(), 65535);
    EXPECT_EQ(*number(VT_UI1, 200).getIf<std::int32_t>(), 200);
    EXPECT_EQ(*number(VT_I1, 200).getIf<std::int32_t>(), -56);
    EXPECT_EQ(*number(VT_UI4, 5).getIf<std::int32_t>(), 5);
    EXPECT_EQ(*number(VT_UI4, 0xFFFFFFFF).getIf<double>(), 4294967295.0);
    EXPECT_EQ(*number(VT_I8, -2).getIf<std::int32_t>(), -2);
    EXPECT_EQ(*number(VT_I8, 1LL << 40).getIf<double>(), 1099511627776.0);
    EXPECT_EQ(*number(VT_CY, 12345).getIf<double>(), 1.2345);
}

TEST(Variants, SinglesAndDecimalsBecomeDoubles) {
    VARIANT single{};
    V_VT(&single) = VT_R4;
    V_R4(&single) = 0.5F;
    EXPECT_EQ(*fromVariant(single).getIf<double>(), 0.5);

    VARIANT decimal{};
    ASSERT_EQ(::VarDecFromR8(12.25, &V_DECIMAL(&decimal)), S_OK);
    V_VT(&decimal) = VT_DECIMAL;
    EXPECT_EQ(*fromVariant(decimal).getIf<double>(), 12.25);
}

TEST(Variants, ReferencesAreFollowed) {
    Variant inner;
    toVariant(Value(u"inside"), *inner);
    VARIANT outer{};
    V_VT(&outer) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&outer) = inner.get();
    EXPECT_EQ(*fromVariant(outer).text(), u"inside");

    SHORT number = -3;
    VARIANT reference{};
    V_VT(&reference) = VT_BYREF | VT_I2;
    V_I2REF(&reference) = &number;
    EXPECT_EQ(*fromVariant(reference).getIf<std::int32_t>(), -3);
}

TEST(Variants, TypedArraysBecomeArraysOfValues) {
    SAFEARRAYBOUND bound{2, 1};
    SAFEARRAY* array = ::SafeArrayCreate(VT_BSTR, 1, &bound);
    LONG index = 2;
    const Bstr text = makeBstr(u"second");
    ASSERT_EQ(::SafeArrayPutElement(array, &index, text.get()), S_OK);
    Variant variant;
    V_VT(variant.get()) = VT_ARRAY | VT_BSTR;
    V_ARRAY(variant.get()) = array;
    const Value value = fromVariant(*variant);
    ASSERT_NE(value.getIf<Array>(), nullptr);
    EXPECT_EQ(value.getIf<Array>()->lowerBound, 1);
    EXPECT_EQ(*value.getIf<Array>()->items.at(1).text(), u"second");
}

TEST(Variants, ArraysOfSeveralDimensionsAreATypeMismatch) {
    SAFEARRAYBOUND bounds[2]{{2, 0}, {2, 0}};
    Variant variant;
    V_VT(variant.get()) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(variant.get()) = ::SafeArrayCreate(VT_VARIANT, 2, bounds);
    EXPECT_EQ(errorOf(*variant), 13);
}

TEST(Variants, UnknownObjectsAreAskedForAutomation) {
    const auto object = fake();
    VARIANT variant{};
    V_VT(&variant) = VT_UNKNOWN;
    V_UNKNOWN(&variant) = object.get();
    EXPECT_EQ(fromVariant(variant).toObject().identity(), object.get());

    ComPtr<IErrorInfo> other;
    ComPtr<ICreateErrorInfo> creation;
    ASSERT_EQ(::CreateErrorInfo(creation.out()), S_OK);
    V_UNKNOWN(&variant) = creation.get();
    EXPECT_EQ(errorOf(variant), 430);
}

TEST(Variants, TakingMovesTheReference) {
    const auto object = fake();
    VARIANT variant{};
    V_VT(&variant) = VT_DISPATCH;
    V_DISPATCH(&variant) = ComPtr<FakeDispatch>(object).detach();
    const Value value = taken(variant);
    EXPECT_EQ(V_VT(&variant), VT_EMPTY);
    EXPECT_EQ(object->count(), 2U);
    EXPECT_EQ(value.toObject().identity(), object.get());
}

TEST(Variants, StoringThroughAReferenceKeepsTheVariablesType) {
    BSTR text = makeBstr(u"old").release();
    VARIANT reference{};
    V_VT(&reference) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&reference) = &text;
    storeThrough(reference, Value(42));
    EXPECT_EQ(viewOf(text), u"42");
    ::SysFreeString(text);

    SHORT number = 1;
    V_VT(&reference) = VT_BYREF | VT_I2;
    V_I2REF(&reference) = &number;
    storeThrough(reference, Value(77));
    EXPECT_EQ(number, 77);
    EXPECT_THROW(storeThrough(reference, Value(100000)), Error);
    EXPECT_EQ(number, 77);
}

TEST(Variants, StoringAnObjectReleasesTheOldOne) {
    const auto before = fake();
    const auto after = fake();
    IDispatch* variable = ComPtr<IDispatch>(before.get()).detach();
    VARIANT reference{};
    V_VT(&reference) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&reference) = &variable;
    storeThrough(reference, Value(fromDispatch(after.get())));
    EXPECT_EQ(before->count(), 1U);
    EXPECT_EQ(variable, static_cast<IDispatch*>(after.get()));
    variable->Release();
}

}  // namespace
}  // namespace quorel::win32::testing

#include "platform/controls/property_value.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/automation/number_text.h"
#include "tests/platform/controls/property_double.h"

namespace quorel::controls {
namespace {

using automation::Value;
using automation::ValueKind;
using Texts = std::vector<std::u16string>;

ParsedValue parse(EditorKind kind, std::u16string_view text, Value original = {}) {
    return parseValue({kind, {u"Novel", u"Play"}, std::move(original)}, text);
}

TEST(PropertyValue, DataTypesIgnoreCaseAndUnknownOnesAreText) {
    EXPECT_EQ(editorKind(u"integer"), EditorKind::Integer);
    EXPECT_EQ(editorKind(u" Long "), EditorKind::Integer);
    EXPECT_EQ(editorKind(u"DOUBLE"), EditorKind::Real);
    EXPECT_EQ(editorKind(u"Boolean"), EditorKind::Boolean);
    EXPECT_EQ(editorKind(u"Date"), EditorKind::Date);
    EXPECT_EQ(editorKind(u"Enumeration"), EditorKind::Enumeration);
    EXPECT_EQ(editorKind(u"color"), EditorKind::Colour);
    EXPECT_EQ(editorKind(u"File"), EditorKind::File);
    EXPECT_EQ(editorKind(u"Directory"), EditorKind::Directory);
    EXPECT_EQ(editorKind(u"Binary"), EditorKind::Binary);
    EXPECT_EQ(editorKind(u"MultiLine"), EditorKind::MultiLine);
    for (const std::u16string_view name : {u"", u"String", u"Polygon", u"Integers"})
        EXPECT_EQ(editorKind(name), EditorKind::Text);
}

TEST(PropertyValue, WholeNumbersFitInto32Bits) {
    EXPECT_EQ(*parse(EditorKind::Integer, u" 42 ").value->getIf<std::int32_t>(), 42);
    EXPECT_EQ(*parse(EditorKind::Integer, u"-2147483648").value->getIf<std::int32_t>(),
              std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(*parse(EditorKind::Integer, u"&H10").value->getIf<std::int32_t>(), 16);
    for (const std::u16string_view text : {u"2147483648", u"1.5", u"abc", u"1E400", u"-", u"4 2"}) {
        const ParsedValue parsed = parse(EditorKind::Integer, text);
        EXPECT_FALSE(parsed.value);
        EXPECT_EQ(parsed.message, u"Enter a whole number from -2147483648 to 2147483647.");
    }
}

TEST(PropertyValue, RealNumbersAreFinite) {
    EXPECT_EQ(*parse(EditorKind::Real, u"3.25").value->getIf<double>(), 3.25);
    EXPECT_EQ(*parse(EditorKind::Real, u"-1E-3").value->getIf<double>(), -0.001);
    for (const std::u16string_view text : {u"1E400", u"pi", u"1,5"})
        EXPECT_FALSE(parse(EditorKind::Real, text).value);
}

TEST(PropertyValue, BooleansHaveSeveralWords) {
    for (const std::u16string_view text : {u"True", u"yes", u"ON", u"1", u"-1"})
        EXPECT_TRUE(*parse(EditorKind::Boolean, text).value->getIf<bool>());
    for (const std::u16string_view text : {u"false", u"No", u"off", u"0"})
        EXPECT_FALSE(*parse(EditorKind::Boolean, text).value->getIf<bool>());
    EXPECT_FALSE(parse(EditorKind::Boolean, u"perhaps").value);
}

TEST(PropertyValue, DatesAreReadAsTheyAreShown) {
    const Value date = *parse(EditorKind::Date, u"2002-03-03 14:05:09").value;
    ASSERT_EQ(date.kind(), ValueKind::Date);
    EXPECT_EQ(editText(EditorKind::Date, date), u"2002-03-03 14:05:09");
    EXPECT_EQ(editText(EditorKind::Date, *parse(EditorKind::Date, u"2002-03-03").value), u"2002-03-03");
    EXPECT_FALSE(parse(EditorKind::Date, u"2002-02-30").value);
    EXPECT_FALSE(parse(EditorKind::Date, u"tomorrow").value);
}

TEST(PropertyValue, EnumerationsTakeTheirChoicesOnly) {
    EXPECT_EQ(parse(EditorKind::Enumeration, u"Play").value->toString(), u"Play");
    EXPECT_EQ(parse(EditorKind::Enumeration, u"play").message, u"Choose one of: Novel, Play.");
    EXPECT_EQ(parseValue({EditorKind::Enumeration, {}, {}}, u"anything").value->toString(), u"anything");
    EXPECT_TRUE(isUnset(*parse(EditorKind::Enumeration, u"").value));
    EXPECT_EQ(parseValue({EditorKind::Enumeration, {u"", u"a"}, {}}, u"").value->kind(), ValueKind::String);
}

TEST(PropertyValue, ColoursAreHexadecimalAndStoredAsTheOriginalIs) {
    const Value orange = *parse(EditorKind::Colour, u"#FF8000").value;
    EXPECT_EQ(*orange.getIf<std::int32_t>(), 0x0080FF) << "red is the lowest byte";
    EXPECT_EQ(editText(EditorKind::Colour, orange), u"#FF8000");
    EXPECT_EQ(parse(EditorKind::Colour, u"#ff8000", u"#000000").value->toString(), u"#FF8000");
    const Value system = *parse(EditorKind::Colour, u"&H8000000F").value;
    EXPECT_EQ(editText(EditorKind::Colour, system), u"&H8000000F");
    for (const std::u16string_view text : {u"orange", u"#12", u"#GG0000", u"#+12345"})
        EXPECT_FALSE(parse(EditorKind::Colour, text).value);
    EXPECT_EQ(editText(EditorKind::Colour, u"teal"), u"teal");
    EXPECT_EQ(editText(EditorKind::Colour, 1E20), u"1E+20");
}

TEST(PropertyValue, EmptyTextUnsetsAllButTexts) {
    for (const EditorKind kind : {EditorKind::Integer, EditorKind::Real, EditorKind::Boolean,
                                  EditorKind::Date, EditorKind::Colour, EditorKind::File})
        EXPECT_TRUE(isUnset(*parse(kind, u"  ", 1).value));
    EXPECT_TRUE(isUnset(*parse(EditorKind::Text, u"").value));
    EXPECT_EQ(parse(EditorKind::Text, u"", u"was").value->kind(), ValueKind::String);
    EXPECT_EQ(parse(EditorKind::Text, u"  two ").value->toString(), u"  two ") << "texts are not trimmed";
}

TEST(PropertyValue, BytesAreNotTyped) {
    EXPECT_FALSE(parse(EditorKind::Binary, u"12 bytes").value);
    EXPECT_EQ(editText(EditorKind::Binary, automation::Bytes{{1, 2, 3}, 0}), u"3 bytes");
}

TEST(PropertyValue, SameValuesNeedNoWriting) {
    EXPECT_TRUE(sameValue(3, 3.0));
    EXPECT_FALSE(sameValue(3, u"3"));
    EXPECT_TRUE(sameValue(Value(), Value::null()));
    EXPECT_FALSE(sameValue(Value(), u""));
    EXPECT_FALSE(sameValue(Value(), 0));
    EXPECT_FALSE(sameValue(true, -1)) << "a boolean written as a number is another value";
    EXPECT_TRUE(sameValue(automation::Bytes{{1}, 0}, automation::Bytes{{1}, 1}));
    EXPECT_FALSE(sameValue(automation::Bytes{{1}, 0}, automation::Bytes{{2}, 0}));
    EXPECT_TRUE(sameValue(automation::Date{2}, automation::Date{2}));
    EXPECT_FALSE(sameValue(u"a", u"A"));
}

TEST(PropertyValue, ChoicesComeInEveryShape) {
    EXPECT_EQ(choicesOf(automation::Array{{u"a", 2}, 0}), (Texts{u"a", u"2"}));
    EXPECT_EQ(choicesOf(u"a, b ,c"), (Texts{u"a", u"b", u"c"}));
    EXPECT_EQ(choicesOf({}), Texts{});
    EXPECT_EQ(choicesOf(Value::nothing()), Texts{});
}

TEST(PropertyValue, LineBreaksBecomeThoseOfTextBoxes) {
    EXPECT_EQ(withWindowsLines(u"a\nb\rc\r\nd\n\n"), u"a\r\nb\r\nc\r\nd\r\n\r\n");
}

}  // namespace
}  // namespace quorel::controls

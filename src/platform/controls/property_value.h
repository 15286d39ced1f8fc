#pragma once

// From the values of properties to texts that a user edits, and back.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/value.h"
#include "platform/shell/value_pickers.h"

namespace quorel::controls {

/// How a property is edited.
enum class EditorKind : std::uint8_t {
    Text,
    MultiLine,
    Integer,
    Real,
    Boolean,
    Date,
    Enumeration,
    Colour,
    File,
    Directory,
    Binary
};

/// The editor of a data type, whatever the case of its letters: "String", "Text", "MultiLine" ("Memo",
/// "LongText"), "Integer" ("Int", "Long", "Short"), "Double" ("Real", "Float", "Single", "Number", "Decimal",
/// "Currency"), "Boolean" ("Bool"), "Date" ("DateTime", "Time"), "Enumeration" ("Enum"), "Colour" ("Color"),
/// "File" ("FileName"), "Directory" ("Folder"), "Binary" ("Bytes", "Blob"). Any other is edited as text.
[[nodiscard]] EditorKind editorKind(std::u16string_view dataType);

/// The text that an editor begins with. A colour is "#RRGGBB" (a system colour "&H8000000F"), bytes are their
/// size, an unset value is "".
[[nodiscard]] std::u16string editText(EditorKind kind, const automation::Value& value);

/// What a text means: a value, or the reason why it is none.
struct ParsedValue {
    std::optional<automation::Value> value;
    std::u16string message;
};

/// What parsing needs to know of a property beside its kind.
struct ParseContext {
    EditorKind kind = EditorKind::Text;
    std::vector<std::u16string> choices;  ///< the values of an enumeration; none lets every text through
    automation::Value original;           ///< decides how the same text is stored
};

/// Reads a text as the user typed it. An empty text unsets the property (an empty value); of a text property
/// that has a value it is the empty text. A colour is a string where the original is one, else the platform's
/// integer (blue, green, red from the highest byte). Bytes are never typed.
[[nodiscard]] ParsedValue parseValue(const ParseContext& context, std::u16string_view text);

/// True for a data type whose dates are times of day.
[[nodiscard]] bool isTimeOfDay(std::u16string_view dataType);

/// The day of a date as it is typed; empty when the text is none or has only a time of day.
[[nodiscard]] std::optional<shell::Day> dayOf(std::u16string_view text);

/// The text with that day; a time of day stays.
[[nodiscard]] std::u16string withDay(std::u16string_view text, const shell::Day& day);

/// True if writing one over the other would change nothing: numbers by value, texts and bytes exactly, Empty
/// and Null alike, objects by identity.
[[nodiscard]] bool sameValue(const automation::Value& a, const automation::Value& b);

/// True for a value that stands for "not set".
[[nodiscard]] bool isUnset(const automation::Value& value) noexcept;

/// The text with every line break as carriage return and line feed, as text boxes have them.
[[nodiscard]] std::u16string withWindowsLines(std::u16string_view text);

/// The choices of an enumeration as a definition gives them: an array, an object with `length` and numbered
/// members, a collection of texts, or a text with commas between.
[[nodiscard]] std::vector<std::u16string> choicesOf(const automation::Value& values);

}  // namespace quorel::controls

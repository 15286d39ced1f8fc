#pragma once

#include <string>
#include <string_view>

#include "platform/automation/value.h"

namespace quorel::controls {

/// What a cell shows that could not be read.
inline constexpr std::u16string_view kUnreadableMark = u"#Error";

/// The whole text of a value: "" for what holds nothing, the size of arrays ("12 bytes", "3 items"),
/// otherwise the variant conversion. Throws what an object throws when it is asked for its default member.
[[nodiscard]] std::u16string valueText(const automation::Value& value);

/// The text as a cell shows it: its first line, at most 4,096 units without splitting a pair, tabs as blanks,
/// an embedded null as its symbol; an ellipsis stands for what is left out.
[[nodiscard]] std::u16string displayText(std::u16string_view text);

/// Makes of a value the string that a cell shows: `displayText(valueText(value))`. A text that is shown as it
/// stands is left where it is.
void makeDisplayText(automation::Value& value);

/// The text as a field of tab-separated lines: in quotes (inner ones doubled) when it holds a tab, a line
/// break or a quote; an embedded null as its symbol, since a clipboard ends there.
[[nodiscard]] std::u16string clipboardField(std::u16string_view text);

}  // namespace quorel::controls

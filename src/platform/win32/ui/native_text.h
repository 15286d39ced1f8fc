#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorel::win32 {

/// `ui::shownText` for one line of a list, menu or status bar: line ends and tabs become blanks, and what is
/// longer than `most` units is cut, not inside a surrogate pair.
[[nodiscard]] std::u16string shownLine(std::u16string_view text, std::size_t most);

/// What the user has made of `before` when the native text went from `ui::shownText(before)` to `shownNow`:
/// the units outside the edited stretch are taken from `before`, so its NULs survive.
[[nodiscard]] std::u16string editedText(std::u16string_view before, std::u16string_view shownNow);

}  // namespace quorel::win32

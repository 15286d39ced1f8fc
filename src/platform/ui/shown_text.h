#pragma once

#include <string>
#include <string_view>

namespace quorel::ui {

/// The text as a window shows it. Native texts end at the first null, so that one is shown as its symbol
/// (U+2400); everything else, lone surrogates too, is shown as it is. The control's own text stays what it
/// was until the user edits it.
[[nodiscard]] std::u16string shownText(std::u16string_view text);

}  // namespace quorel::ui

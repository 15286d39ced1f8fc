#pragma once

#include <string>
#include <string_view>

namespace quorel::diagram {

/// The text with U+FFFD for every control character, every lone surrogate and what is no character, so that
/// it can be drawn and written anywhere.
[[nodiscard]] std::u16string cleanText(std::u16string_view text);

}  // namespace quorel::diagram

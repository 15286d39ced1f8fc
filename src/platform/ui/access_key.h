#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorel::ui {

/// The character after the last single `&` of a caption, in upper case; `&&` is a literal ampersand.
[[nodiscard]] std::optional<char16_t> accessKey(std::u16string_view caption) noexcept;

/// The caption as it is read: marks taken away, `&&` made one.
[[nodiscard]] std::u16string withoutAccessKey(std::u16string_view caption);

/// `text` so that it is shown as it stands in a caption: every `&` doubled.
[[nodiscard]] std::u16string escapedForCaption(std::u16string_view text);

}  // namespace quorel::ui

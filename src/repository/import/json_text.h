#pragma once

#include <string>
#include <string_view>

namespace quorel::repository {

/// A JSON string of any UTF-16 text, in quotes: control characters and lone surrogates escaped (the latter as
/// \uD800), everything else as UTF-8.
[[nodiscard]] std::string jsonQuoted(std::u16string_view text);

/// A JSON text whose strings a parser of well-formed Unicode accepts: escapes of lone surrogates are replaced
/// by the marker U+10FFFF and four digits, and that character itself by the marker and "FFFF". Nearly every
/// text comes back as it is.
[[nodiscard]] std::string sealSurrogates(std::string_view json);
/// Undoes `sealSurrogates` in a parsed string (UTF-8).
[[nodiscard]] std::u16string unsealed(std::string_view text);

}  // namespace quorel::repository

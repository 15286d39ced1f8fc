#pragma once

#include <string_view>

namespace quorel::scripthost {

enum class Stream : bool { Output, Errors };

/// Writes one line: to a console as it is, to a file or pipe as UTF-8.
void writeLine(Stream stream, std::u16string_view line);

}  // namespace quorel::scripthost

#pragma once

#include <string_view>

namespace quorel::hosts {

/// Gives a program of windows the console of the program that started it, if that has one; streams that lead
/// to files or pipes stay.
void useParentsConsole();

enum class Stream : bool { Output, Errors };

/// Writes one line: to a console as it is, to a file or pipe as UTF-8.
void writeLine(Stream stream, std::u16string_view line);

}  // namespace quorel::hosts

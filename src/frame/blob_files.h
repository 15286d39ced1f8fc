#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// What `Blob` does with files. Each throws `automation::Error` with a description that names the file: 53
/// when there is no such file to read, 76 when there is no folder for it, 75 for everything else.
namespace quorel::frame {

/// The bytes of a plain file and a zero after them. A file of more than 2,147,483,647 bytes is error 7.
[[nodiscard]] std::vector<std::uint8_t> loadBytes(std::u16string_view fileName);

/// Makes the bytes the first ones of a file, which is created when there is none; what it has behind them
/// stays. Whenever the process ends, a plain file has all of its old content or all of its new one.
void storeBytes(std::span<const std::uint8_t> bytes, std::u16string_view fileName);

}  // namespace quorel::frame

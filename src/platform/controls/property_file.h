#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorel::controls {

/// Everything that a file holds. Throws `automation::Error` 53 when there is none of that name, 75 when it
/// cannot be read.
[[nodiscard]] std::vector<std::uint8_t> readFile(const std::u16string& name);

/// Makes or replaces a file. Throws `automation::Error` 75 when it cannot be written.
void writeFile(const std::u16string& name, const std::vector<std::uint8_t>& data);

}  // namespace quorel::controls

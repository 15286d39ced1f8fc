#pragma once

#include <string>
#include <vector>

namespace quorel::hosts {

/// The program, given its arguments without its own name. Returns the exit code.
[[nodiscard]] int runImport(const std::vector<std::u16string>& words);

}  // namespace quorel::hosts

#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>

namespace quorel::shell {

/// Replaces a file, or makes it: `write` fills a file beside it, which is flushed to the disk and then takes
/// its place at once. Whenever the process or the machine ends, the file has its old content or the new one;
/// what is reached by a link is replaced where it is, and its permissions stay. False, with the file as it
/// was, when any of that fails.
[[nodiscard]] bool replaceFile(const std::filesystem::path& file,
                               const std::function<void(std::ostream&)>& write);

}  // namespace quorel::shell

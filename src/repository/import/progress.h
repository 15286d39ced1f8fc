#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace quorel::repository {

/// How far a long run is, in bytes of its input.
struct Progress {
    std::string_view stage;  ///< e.g. "Importing"
    std::uint64_t done = 0;
    std::uint64_t total = 0;  ///< 0 when it is not known
};

/// Called often; a display decides how often it shows something. It may throw to break the run off.
using ReportProgress = std::function<void(const Progress&)>;

}  // namespace quorel::repository

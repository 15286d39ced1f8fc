#pragma once

#include <cstddef>

namespace quorel::diagram::layout {

/// Nodes, edges and ranks are numbered by int; what is kept of them stands in vectors.
[[nodiscard]] constexpr std::size_t at(int number) noexcept {
    return static_cast<std::size_t>(number);
}

}  // namespace quorel::diagram::layout

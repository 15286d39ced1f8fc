#pragma once

#include <cstddef>
#include <cstdint>

namespace quorel::ui {

/// An item of one tree. An id is never given to another item again; `None` is of no item. Above the items at
/// the top stands `Root`, which is always there and never shown.
enum class TreeItemId : std::uint64_t { Root = 0, None = ~std::uint64_t{0} };

/// A small number, dense among the items that there are; taken again after a removal. For tables beside a
/// tree.
[[nodiscard]] constexpr std::size_t slotOf(TreeItemId item) noexcept {
    return static_cast<std::uint32_t>(item);
}

/// What has happened to one item, for the tree's peer.
enum class TreeChange : std::uint8_t {
    Added,
    Removing,  ///< it and all below it are about to go
    Content,   ///< text, picture, bold, whether it may have children
    Expanded,
    Collapsed
};

}  // namespace quorel::ui

#pragma once

#include <cstdint>
#include <string>

#include "platform/ui/tree.h"

namespace quorel::ui {

/// What the user types into a tree to find an item. Characters that follow each other soon are one text;
/// the same one again and again goes from each item that begins with it to the next.
class TypeAhead {
  public:
    /// The item that the text leads to now; `None` leaves the selection where it is.
    [[nodiscard]] TreeItemId typed(const Tree& tree, char16_t unit, std::uint64_t milliseconds);

  private:
    std::u16string text_;
    std::uint64_t last_ = 0;
};

}  // namespace quorel::ui

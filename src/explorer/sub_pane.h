#pragma once

#include <deque>
#include <string>

#include "explorer/explorer_control.h"
#include "platform/ui/control.h"

namespace quorel::controls {
class ListView;
}

namespace quorel::explorer {

/// One tab of a pane: a page with controls below each other.
struct subPane {
    ui::Panel* Pane = nullptr;
    /// In the order in which they were added; none moves when another is.
    std::deque<ExplorerControl> Controls{};
    std::u16string Caption{};
    ui::Twips CurrentHeight{};  ///< where the next control goes
    /// The list that the user was in last.
    controls::ListView* usedList = nullptr;

    [[nodiscard]] bool Visible() const noexcept { return Pane->isVisible(); }
    void setVisible(bool visible) const { Pane->setVisible(visible); }
};

}  // namespace quorel::explorer

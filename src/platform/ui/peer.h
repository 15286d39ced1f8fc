#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/ui/flags.h"
#include "platform/ui/tree_item.h"
#include "platform/ui/units.h"

namespace quorel::ui {

/// Which parts of a control's state have changed; a peer reads the new values from the control.
enum class Change : std::uint32_t {
    None = 0,
    Text = 1U << 0,
    Bounds = 1U << 1,
    Visible = 1U << 2,
    Enabled = 1U << 3,
    Colours = 1U << 4,
    ToolTip = 1U << 5,
    Menu = 1U << 6,
    Items = 1U << 7,  ///< rows, panels, picture: the content was replaced
    Columns = 1U << 8,
    Selection = 1U << 9,
    Style = 1U << 10,     ///< read-only, default button, minimum size …
    ScrollTo = 1U << 11,  ///< bring a cell into view
    Images = 1U << 12,    ///< a picture of the image list was added or replaced
    All = 0x1FFF
};
template <>
inline constexpr bool kIsFlags<Change> = true;

/// A cell of a list.
struct CellIndex {
    std::size_t row = 0;
    std::size_t column = 0;
    friend constexpr bool operator==(CellIndex, CellIndex) = default;
};

/// Where a menu opens that the program shows: at the mouse, or under the control.
enum class MenuPlace : bool { Mouse, Control };

class MenuItem;

/// The native half of a control: mirrors its state in a native window and reports what the user does by the
/// control's `user…` members. Made when the control is first shown, dropped when its form unloads. A peer
/// must survive being destroyed while it reports (the handler may unload the form).
class Peer {
  public:
    Peer() = default;
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    virtual ~Peer() = default;

    virtual void apply(Change changes) = 0;
    virtual void takeFocus() = 0;
    /// Shows the entries below `menu`, waits for the user, clicks the entry chosen.
    virtual void popUpMenu(MenuItem& menu, MenuPlace place) {
        static_cast<void>(menu);
        static_cast<void>(place);
    }
    /// For forms: paints what has changed.
    virtual void refresh() {}
    /// For lists: where the visible part of a cell is, relative to the list; none while it is out of sight.
    [[nodiscard]] virtual std::optional<Rect> cellBounds(CellIndex cell) const {
        static_cast<void>(cell);
        return std::nullopt;
    }
    /// For drawing areas: some of it is to be painted anew.
    virtual void invalidate(const Rect& area) { static_cast<void>(area); }
    /// For trees: what has happened to one item. A tree that gets its peer has all its items already.
    virtual void applyItem(TreeItemId item, TreeChange change) {
        static_cast<void>(item);
        static_cast<void>(change);
    }
};

}  // namespace quorel::ui

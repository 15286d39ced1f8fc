#pragma once

#include "platform/ui/units.h"

namespace quorel::controls {

/// Where the parts of a list view go, relative to it.
struct ListViewLayout {
    ui::Rect filterBox;
    ui::Rect shownLabel;
    ui::Rect list;
};

/// The list takes everything, but the line of the filter above it when that is open.
[[nodiscard]] ListViewLayout layoutListView(ui::Size size, bool filterOpen) noexcept;

}  // namespace quorel::controls

#pragma once

#include <string>
#include <vector>

#include "platform/ui/tab_strip.h"
#include "platform/ui/tree.h"
#include "platform/ui/virtual_list.h"
#include "tests/support/test_world.h"

/// What a person does in an explorer's window, whatever of it there is.
namespace quorel::explorer {

using TreePath = std::vector<std::u16string>;

/// The item at the end of the path, as far as it is listed.
[[nodiscard]] inline ui::TreeItemId findItem(const ui::Tree& tree, const TreePath& path) {
    ui::TreeItemId at = ui::TreeItemId::Root;
    for (const std::u16string& text : path) {
        ui::TreeItemId child = tree.firstChild(at);
        while (child != ui::TreeItemId::None && tree.itemText(child) != text)
            child = tree.nextSibling(child);
        at = child;
        if (at == ui::TreeItemId::None)
            break;
    }
    return at;
}

/// Looks at all rows of the lists that can be used.
inline void lookAtLists(testing::TestWorld& world, const ui::Container& container) {
    for (const auto& child : container.children()) {
        if (auto* const list = dynamic_cast<ui::VirtualList*>(child.get()); list && list->isUsable())
            static_cast<void>(world.user.look(*list, 0, list->rowCount()));
        if (const auto* const inner = dynamic_cast<const ui::Container*>(child.get()))
            lookAtLists(world, *inner);
    }
    world.desktop.runPosted();
}

/// Clicks one tab after the other and looks at what it shows.
inline void lookAtTabs(testing::TestWorld& world, ui::TabStrip& tabs) {
    for (std::size_t tab = 0; tab < tabs.tabs().size(); ++tab)
        if (tabs.tabs()[tab].visible) {
            world.user.clickTab(tabs, tab);
            lookAtLists(world, tabs);
        }
}

}  // namespace quorel::explorer

#include "explorer/ht_explorer_pane.h"

#include "explorer/explorer_window.h"
#include "platform/automation/calls.h"
#include "platform/controls/hierarchy_tree_view.h"
#include "platform/controls/list_view.h"
#include "platform/controls/property.h"

namespace quorel::explorer {

using automation::Object;
using controls::HierarchyTreeView;
using controls::LinkEnd;
using controls::TreeEntry;

void HTExplorerPane::Resize() {
    const ui::Rect area = window().tabs().pageArea();
    for (const auto& page : Panes())
        page->Pane->setBounds(area);
    ExplorerPane::Resize();
}

void HTExplorerPane::fill(const ExplorerControl& control, const TreeEntry& entry) {
    if (control.kind == ControlKind::Property)
        control.as<controls::Property>().setRepObject(entry.object());
    else if (control.kind == ControlKind::ListView && control.view.starts_with(u"Link"))
        fillLinkList(control, entry);
}

/// A list of links of which there are none at all is not seen.
void HTExplorerPane::fillLinkList(const ExplorerControl& control, const TreeEntry& entry) {
    const std::uint64_t releases = window().releases();
    const auto isReleased = [&] { return releases != window().releases(); };
    const bool reaches = control.view == u"Link-Source";
    auto& list = control.as<controls::ListView>();
    const Object repository = window().Repository();
    const Object node = HierarchyTreeView::linkEnd(entry, reaches ? LinkEnd::Target : LinkEnd::Source);
    list.clearRows();
    const Object metaLink = repository.get(u"MetaLinks", control.metatype).toObject();
    if (isReleased())
        return;
    list.SetList_Outgoing(node, metaLink, !reaches);
    const bool hasInstances = metaLink.get(u"Extension").toObject().get(u"Count").toInteger() > 0;
    if (!isReleased())
        list.setVisible(hasInstances);
}

}  // namespace quorel::explorer

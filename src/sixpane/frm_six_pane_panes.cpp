#include "dialogs/node_edit.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"
#include "sixpane/frm_object_properties.h"
#include "sixpane/frm_six_pane.h"

namespace quorel::sixpane {

using automation::Object;
using controls::ListView;

void frmSixPane::connectPanes() {
    pane(Pane::SourceMetaNode).onClick.connect([this] { SourceMetaNode_Click(); });
    pane(Pane::TargetMetaNode).onClick.connect([this] { TargetMetaNode_Click(); });
    pane(Pane::MetaLink).onClick.connect([this] { MetaLink_Click(); });
    pane(Pane::Link).onClick.connect([this] { Link_Click(); });
    pane(Pane::SourceNode).onDoubleClick.connect([this] { SourceNode_DblClick(); });
    pane(Pane::TargetNode).onDoubleClick.connect([this] { TargetNode_DblClick(); });
    pane(Pane::Link).onDoubleClick.connect([this] { Link_DblClick(); });
    // A cell that cannot be read is a failure of the procedure that filled its pane.
    constexpr std::array<std::u16string_view, kPaneCount> kFilledBy{u"Populate", u"SourceMetaNode_Click",
                                                                    u"Populate", u"MetaLink_Click",
                                                                    u"Populate", u"TargetMetaNode_Click"};
    for (const PaneTraits& traits : kPanes) {
        const Pane which = traits.pane;
        pane(which).onCountChanged.connect([this, which] { showCount(which); });
        pane(which).onCellError.connect(
            [this, label = kFilledBy[indexOf(which)]](const automation::Error& error) {
                procedure(label, [&error] { throw error; });
            });
    }
}

void frmSixPane::Populate() {
    procedure(u"Populate", [this] { fillTypePanes(); });
}

void frmSixPane::fillTypePanes() {
    pane(Pane::SourceMetaNode).fillWithMetaNodes(Object(repository_), true);
    // The host may have destroyed the browser while it was asked.
    if (isLoaded())
        pane(Pane::TargetMetaNode).fillWithMetaNodes(Object(repository_), true);
    if (isLoaded())
        pane(Pane::MetaLink).fillWithMetaLinks(Object(repository_), true);
}

void frmSixPane::fillNodes(Pane nodes, Pane metaNodes) {
    ListView& list = pane(nodes);
    list.clearRows();
    list.resetColumns();
    if (const Object metaNode = pane(metaNodes).selectedObject())
        list.fillWithExtension(metaNode, true);
}

void frmSixPane::fillLinks() {
    ListView& list = pane(Pane::Link);
    list.clearRows();
    list.resetColumns();
    if (const Object metaLink = pane(Pane::MetaLink).selectedObject())
        list.fillWithLinks(metaLink, true);
}

void frmSixPane::SourceMetaNode_Click() {
    procedure(u"SourceMetaNode_Click", [this] { fillNodes(Pane::SourceNode, Pane::SourceMetaNode); });
}

void frmSixPane::TargetMetaNode_Click() {
    procedure(u"TargetMetaNode_Click", [this] { fillNodes(Pane::TargetNode, Pane::TargetMetaNode); });
}

void frmSixPane::MetaLink_Click() {
    procedure(u"MetaLink_Click", [this] {
        fillLinks();
        const Object metaLink = pane(Pane::MetaLink).selectedObject();
        if (!metaLink)
            return;
        pane(Pane::SourceMetaNode).setSelectedObject(metaLink.get(u"source").toObject());
        pane(Pane::TargetMetaNode).setSelectedObject(metaLink.get(u"target").toObject());
        TargetMetaNode_Click();
        SourceMetaNode_Click();
    });
}

bool frmSixPane::isSelected(Pane metaNodes, const Object& metaNode) {
    const Object selected = pane(metaNodes).selectedObject();
    if (!selected || !metaNode)
        return false;
    // Not every host gives the same reference for the same type; its name is its identity.
    return selected == metaNode || selected.get(u"name").toString() == metaNode.get(u"name").toString();
}

void frmSixPane::Link_Click() {
    procedure(u"Link_Click", [this] {
        const Object link = pane(Pane::Link).selectedObject();
        if (!link)
            return;
        const Object source = link.get(u"source").toObject();
        const Object target = link.get(u"target").toObject();
        if (!isSelected(Pane::SourceMetaNode, source.get(u"Parent").toObject()) ||
            !isSelected(Pane::TargetMetaNode, target.get(u"Parent").toObject()))
            return;
        pane(Pane::SourceNode).setSelectedObject(source);
        pane(Pane::TargetNode).setSelectedObject(target);
    });
}

void frmSixPane::displayNode(Pane nodes, Pane metaNodes, void (frmSixPane::*metaNodeClick)()) {
    const Object node = pane(nodes).selectedObject();
    if (!node)
        return;
    const DisplayResult result = DisplayObject(node, ObjectKind::Node);
    if (!result.closed || !result.changed)
        return;
    pane(metaNodes).setSelectedObject(node.get(u"Parent").toObject());
    (this->*metaNodeClick)();
    pane(nodes).setSelectedObject(node);
}

void frmSixPane::SourceNode_DblClick() {
    procedure(u"SourceNode_DblClick", [this] {
        displayNode(Pane::SourceNode, Pane::SourceMetaNode, &frmSixPane::SourceMetaNode_Click);
    });
}

void frmSixPane::TargetNode_DblClick() {
    procedure(u"TargetNode_DblClick", [this] {
        displayNode(Pane::TargetNode, Pane::TargetMetaNode, &frmSixPane::TargetMetaNode_Click);
    });
}

void frmSixPane::Link_DblClick() {
    procedure(u"Link_DblClick", [this] {
        if (const Object link = pane(Pane::Link).selectedObject())
            DisplayObject(link, ObjectKind::Link);
    });
}

frmSixPane::DisplayResult frmSixPane::DisplayObject(const Object& displayed, ObjectKind kind) {
    return procedure(u"DisplayObject", [&] {
        const Object object = displayed;
        const bool isType = kind == ObjectKind::MetaNode || kind == ObjectKind::MetaLink;
        return isType ? displayType(object, kind) : displayInstance(object);
    });
}

/// To read only: a repository has no member by which a type, once made, could be changed.
frmSixPane::DisplayResult frmSixPane::displayType(const Object& type, ObjectKind kind) {
    const std::vector<ObjectRow> rows = readTypeRows(type, kind);
    const auto window = std::make_shared<frmObjectProperties>(desktop());
    dialog_ = window;
    window->PopUp(rows);
    return {isLoaded(), false};
}

frmSixPane::DisplayResult frmSixPane::displayInstance(const Object& object) {
    const auto window = dialogs::makeNodeEdit(environment_, Path, object);
    dialog_ = window;
    window->show(ui::Modality::Modal);
    return {isLoaded(), window->propChanged()};
}

void frmSixPane::SetSelection(const Object& selection) {
    procedure(u"SetSelection", [&] {
        const Object object = selection;
        if (!object) {
            for (ListView* const list : panes_)
                list->setSelectedObject({});
            return;
        }
        const Object parent = answersTo(object, u"Parent") ? object.get(u"Parent").toObject() : Object();
        // An instance's parent is its type; a meta link's is the repository, which has no extension.
        if (answersTo(parent, u"Extension"))
            showInstance(object, parent);
        else
            showType(object);
    });
}

void frmSixPane::showInstance(const Object& object, const Object& type) {
    showType(type);
    if (answersTo(type, u"outgoing")) {
        pane(Pane::SourceNode).setSelectedObject(object);
        return;
    }
    pane(Pane::Link).setSelectedObject(object);
    Link_Click();
}

void frmSixPane::showType(const Object& type) {
    if (answersTo(type, u"outgoing")) {
        pane(Pane::SourceMetaNode).setSelectedObject(type);
        SourceMetaNode_Click();
        return;
    }
    pane(Pane::MetaLink).setSelectedObject(type);
    MetaLink_Click();
}

void frmSixPane::showCount(Pane which) {
    statusBar_->setPanelText(indexOf(which), countText(which));
}

std::u16string frmSixPane::countText(Pane which) {
    const ListView& list = pane(which);
    std::u16string text(kPanes[indexOf(which)].counted);
    text += u": ";
    if (list.shownCount() != list.count())
        text.append(automation::decimal(static_cast<std::int64_t>(list.shownCount()))).append(u" of ");
    return text.append(automation::decimal(static_cast<std::int64_t>(list.count())));
}

}  // namespace quorel::sixpane

#include "dialogs/frm_name_edit.h"
#include "frame/attempt.h"
#include "frame/model_edits.h"
#include "platform/automation/calls.h"
#include "sixpane/frm_six_pane.h"

namespace quorel::sixpane {

using automation::Object;

std::u16string frmSixPane::UUID() {
    return Object(uuidGenerator_).call(u"GetUUID").toString();
}

Object frmSixPane::MakeNode(std::u16string_view name, std::u16string_view metaNode) {
    return procedure(u"MakeNode", [&] {
        return Object(repository_).call(u"MakeNode", metaNode, name, UUID()).toObject();
    });
}

Object frmSixPane::MakeLink(std::u16string_view name, std::u16string_view metaLink, const Object& source,
                            const Object& target) {
    return procedure(u"MakeLink", [&] {
        return Object(repository_).call(u"MakeLink", metaLink, name, UUID(), source, target).toObject();
    });
}

bool frmSixPane::GetName(std::u16string& name, std::u16string_view caption, std::u16string_view question) {
    const auto dialog = std::make_shared<dialogs::frmNameEdit>(desktop());
    dialog->Init(caption, name, question);
    if (!ask(dialog) || !dialog->IsOk())
        return false;
    name = dialog->EditName();
    return true;
}

void frmSixPane::newNode(Pane nodes) {
    const Pane metaNodes = typesOf(nodes);
    const Object metaNode = pane(metaNodes).selectedObject();
    if (!metaNode)
        return;
    const std::u16string type = metaNode.get(u"name").toString();
    std::u16string name;
    if (!GetName(name, u"New node of type " + type, u"Name of node:"))
        return;
    const Object node = MakeNode(name, type);
    // Whatever the host did meanwhile: the node is shown where its type is.
    if (!node || pane(metaNodes).selectedObject() != metaNode)
        return;
    pane(nodes).addObject(node);
    pane(nodes).setSelectedObject(node);
    if (isSelected(otherEnd(metaNodes), metaNode))
        pane(otherEnd(nodes)).addObject(node);
}

void frmSixPane::deleteNode(Pane nodes) {
    const Object node = pane(nodes).selectedObject();
    if (!node)
        return;
    // Asked first: a node that is gone need not answer any more.
    const bool isAtBothEnds = isSelected(typesOf(otherEnd(nodes)), node.get(u"Parent").toObject());
    if (!frame::removeNode(node))
        return;
    pane(nodes).removeObject(node);
    if (isAtBothEnds)
        pane(otherEnd(nodes)).removeObject(node);
    refreshLinks();
}

void frmSixPane::refreshLinks() {
    const Object selected = pane(Pane::Link).selectedObject();
    if (!frame::attempt([this] { fillLinks(); })) {
        // Some of the links would pass for all of them.
        pane(Pane::MetaLink).setSelectedObject({});
        pane(Pane::Link).empty();
        return;
    }
    frame::attempt([&] { pane(Pane::Link).setSelectedObject(selected); });
}

void frmSixPane::NewSourceNode_Click() {
    procedure(u"NewSourceNode_Click", [this] { newNode(Pane::SourceNode); });
}

void frmSixPane::NewTargetNode_Click() {
    procedure(u"NewTargetNode_Click", [this] { newNode(Pane::TargetNode); });
}

void frmSixPane::DeleteSourceNode_Click() {
    procedure(u"DeleteSourceNode_Click", [this] { deleteNode(Pane::SourceNode); });
}

void frmSixPane::DeleteTargetNode_Click() {
    procedure(u"DeleteTargetNode_Click", [this] { deleteNode(Pane::TargetNode); });
}

void frmSixPane::NewLink_Click() {
    // The label of the other link command, on purpose.
    procedure(u"DeleteLink_Click", [this] {
        const Object metaLink = pane(Pane::MetaLink).selectedObject();
        const Object source = pane(Pane::SourceNode).selectedObject();
        const Object target = pane(Pane::TargetNode).selectedObject();
        if (!metaLink || !source || !target)
            return;
        const std::u16string type = metaLink.get(u"name").toString();
        std::u16string name = frame::proposedLinkName(source, target);
        if (!GetName(name, u"New link of type " + type, u"Name of link:"))
            return;
        const Object link = MakeLink(name, type, source, target);
        if (!link || pane(Pane::MetaLink).selectedObject() != metaLink)
            return;
        pane(Pane::Link).addObject(link);
        pane(Pane::Link).setSelectedObject(link);
    });
}

void frmSixPane::DeleteLink_Click() {
    procedure(u"DeleteLink_Click", [this] {
        const Object link = pane(Pane::Link).selectedObject();
        if (!link)
            return;
        const std::u16string metaLink = link.get(u"Parent").toObject().get(u"name").toString();
        const std::u16string identifier = link.get(u"Identifier").toString();
        if (!isLoaded())
            return;
        frame::removeLink(Object(repository_), metaLink, true, identifier);
        pane(Pane::Link).removeObject(link);
    });
}

}  // namespace quorel::sixpane

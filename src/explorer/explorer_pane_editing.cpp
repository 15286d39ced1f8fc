// What the user does to the controls of a pane.

#include "dialogs/frm_name_edit.h"
#include "dialogs/node_edit.h"
#include "explorer/explorer_pane.h"
#include "explorer/explorer_window.h"
#include "explorer/frm_choose_node.h"
#include "frame/model_edits.h"
#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/combo.h"
#include "platform/controls/list_view.h"

namespace quorel::explorer {

using automation::Object;
using controls::EditCommand;
using controls::ListView;
using controls::valueText;

namespace {

constexpr std::int32_t kYesNoQuestion = 4 + 32;
constexpr std::int32_t kInformation = 64;
constexpr std::u16string_view kQuestionTitle = u"QuorelUtility";

/// Whether the rows of such a list are links.
[[nodiscard]] bool listsLinks(const ExplorerControl& list) noexcept {
    return list.view != u"Extension";
}

}  // namespace

void ExplorerPane::connectList(subPane& page, ListView& list) {
    list.list().onGotFocus.connect([this, &page, &list] {
        page.usedList = &list;
        enableCommands(page);
    });
    list.onSelectionChanged.connect([this, &page] { enableCommands(page); });
    list.onCellError.connect(
        [this](const automation::Error& error) { window_->report(u"ActivatePane", error); });
    list.onDoubleClick.connect([this, &page, &list] {
        page.usedList = &list;
        for (const ExplorerControl& control : page.Controls)
            if (control.Control == &list)
                window_->procedure(u"ListView1_DblClick", [&] { editObject(&control); });
    });
    list.list().onKeyDown.connect([this, &page](ui::KeyEvent& event) {
        controls::EditToolbar* const toolbar = toolbarOf(page);
        if (!event.handled && toolbar != nullptr)
            event.handled = toolbar->runKey(event.chord);
    });
}

void ExplorerPane::connectCombo(controls::Combo& combo, const std::u16string& metaLink) {
    combo.onChoose.connect([this, &combo, metaLink](const Object& target) {
        window_->procedure(u"Combo1_Click", [&] { replaceTarget(combo, metaLink, target); });
    });
    combo.onFailure.connect(
        [this](const automation::Error& error) { window_->report(u"Combo1_Click", error); });
}

void ExplorerPane::connectToolbar(subPane& page, controls::EditToolbar& toolbar) {
    toolbar.onCommand.connect([this, &page, &toolbar](EditCommand command) {
        window_->procedure(u"EditToolbar1_Click", [&] { run(servedList(page, toolbar), command); });
    });
}

/// The new link is there before the old one goes: what fails on the way leaves one.
void ExplorerPane::replaceTarget(controls::Combo& combo, const std::u16string& metaLink,
                                 const Object& chosen) {
    if (!entry_)
        return;
    const std::uint64_t releases = window_->releases();
    const Object target = chosen;
    const Object source = nodeOf(*entry_);
    const Object repository = window_->Repository();
    const Object links = source.get(u"Outgoing_", metaLink).toObject();
    Object former;
    if (links.get(u"Count").toInteger() > 0)
        former = links.get(u"Item", 1).toObject();
    repository.call(u"MakeLink", metaLink, frame::proposedLinkName(source, target), window_->UUID(), source,
                    target);
    if (former)
        frame::removeLink(repository, metaLink, true, former.get(u"Identifier").toString());
    if (releases != window_->releases())
        return;
    combo.setSelection(target);
    if (releases != window_->releases())
        return;
    const auto node = nodeOf(*entry_);
    for (const auto& page : panes_)
        for (const ExplorerControl& control : page->Controls)
            if (control.kind == ControlKind::ListView && listsLinks(control) &&
                control.metatype == metaLink && releases == window_->releases())
                fillLinks(control, node);
    if (releases == window_->releases())
        window_->contentsChanged();
}

controls::EditToolbar* ExplorerPane::toolbarOf(const subPane& page) const {
    for (const ExplorerControl& control : page.Controls)
        if (control.kind == ControlKind::EditToolbar)
            return &control.as<controls::EditToolbar>();
    return nullptr;
}

/// The list that the user was in last, else the first one below the toolbar, else the first one; null where
/// there is none and the toolbar serves the object that the pane shows.
const ExplorerControl* ExplorerPane::servedList(const subPane& page,
                                                const controls::EditToolbar& toolbar) const {
    const ExplorerControl* first = nullptr;
    const ExplorerControl* below = nullptr;
    bool isBelow = false;
    for (const ExplorerControl& control : page.Controls) {
        isBelow = isBelow || control.Control == &toolbar;
        if (control.kind != ControlKind::ListView)
            continue;
        if (control.Control == page.usedList)
            return &control;
        first = first != nullptr ? first : &control;
        below = below != nullptr || !isBelow ? below : &control;
    }
    return below != nullptr ? below : first;
}

void ExplorerPane::enableCommands(const subPane& page) {
    for (const ExplorerControl& control : page.Controls) {
        if (control.kind != ControlKind::EditToolbar)
            continue;
        auto& toolbar = control.as<controls::EditToolbar>();
        const ExplorerControl* const list = servedList(page, toolbar);
        const bool standsForObject = entry_ && entry_->kind() != controls::EntryKind::Plain;
        const bool isChosen =
            list != nullptr ? static_cast<bool>(list->as<ListView>().selectedObject()) : standsForObject;
        const bool canMake = list != nullptr ? !listsLinks(*list) || standsForObject : standsForObject;
        toolbar.setCommandEnabled(EditCommand::New, canMake);
        toolbar.setCommandEnabled(EditCommand::Delete, isChosen);
        toolbar.setCommandEnabled(EditCommand::Edit, isChosen);
    }
}

void ExplorerPane::run(const ExplorerControl* list, EditCommand command) {
    switch (command) {
        case EditCommand::New:
            return makeNew(list);
        case EditCommand::Delete:
            return deleteObject(list);
        case EditCommand::Edit:
            return editObject(list);
        case EditCommand::Refresh:
            return dataChanged();
    }
}

void ExplorerPane::makeNew(const ExplorerControl* list) {
    if (list != nullptr && listsLinks(*list))
        return makeLink(*list);
    if (list != nullptr)
        return makeNode(&list->as<ListView>(),
                        Object(window_->Repository()).get(u"MetaNodes", list->metatype).toObject());
    if (const Object node = nodeOf(*entry_))
        makeNode(nullptr, node.get(u"Parent").toObject());
}

void ExplorerPane::makeNode(ListView* list, const Object& metaNode) {
    const std::uint64_t releases = window_->releases();
    const std::u16string type = valueText(metaNode.get(u"name"));
    const auto dialog = std::make_shared<dialogs::frmNameEdit>(window_->desktop());
    dialog->Init(u"New node of type " + type, u"", u"Name of node:");
    if (!window_->ask(dialog) || !dialog->IsOk())
        return;
    const Object node =
        Object(window_->Repository()).call(u"MakeNode", type, dialog->EditName(), window_->UUID()).toObject();
    if (releases != window_->releases())
        return;
    if (list != nullptr) {
        list->addObject(node);
        list->setSelectedObject(node);
    }
    window_->contentsChanged();
}

void ExplorerPane::makeLink(const ExplorerControl& list) {
    const std::uint64_t releases = window_->releases();
    const bool reaches = list.view == u"Link-Source";
    const Object repository = window_->Repository();
    const Object metaLink = repository.get(u"MetaLinks", list.metatype).toObject();
    const Object here = nodeOf(*entry_);
    const auto dialog = std::make_shared<frmChooseNode>(window_->desktop());
    dialog->Init(metaLink.get(reaches ? u"source" : u"target").toObject(),
                 u"New link of type " + list.metatype);
    if (releases != window_->releases() || !window_->ask(dialog) || !dialog->chosen())
        return;
    const Object source = reaches ? dialog->chosen() : here;
    const Object target = reaches ? here : dialog->chosen();
    const Object link = repository
                            .call(u"MakeLink", list.metatype, frame::proposedLinkName(source, target),
                                  window_->UUID(), source, target)
                            .toObject();
    if (releases != window_->releases())
        return;
    list.as<ListView>().addObject(link);
    list.as<ListView>().setSelectedObject(link);
    window_->contentsChanged();
}

void ExplorerPane::deleteObject(const ExplorerControl* list) {
    const std::uint64_t releases = window_->releases();
    const Object object = list != nullptr ? list->as<ListView>().selectedObject() : entry_->object();
    if (!object)
        return;
    const std::u16string called = valueText(object.get(u"name"));
    const auto ask = [&](std::u16string text, std::int32_t style) {
        return window_->desktop().showMessage({std::move(text), std::u16string(kQuestionTitle), style},
                                              window_);
    };
    if (ask(u"Delete '" + called + u"'?", kYesNoQuestion) != ui::MessageAnswer::Yes ||
        releases != window_->releases())
        return;
    const bool isLink = list != nullptr ? listsLinks(*list) : entry_->kind() == controls::EntryKind::Links;
    if (isLink)
        frame::removeLink(Object(window_->Repository()),
                          valueText(object.get(u"Parent").toObject().get(u"name")), true,
                          object.get(u"Identifier").toString());
    else if (!frame::removeNode(object)) {
        ask(u"'" + called + u"' has links and stays.", kInformation);
        return;
    }
    if (releases != window_->releases())
        return;
    if (list != nullptr)
        list->as<ListView>().removeObject(object);
    window_->contentsChanged();
}

void ExplorerPane::editObject(const ExplorerControl* list) {
    const std::uint64_t releases = window_->releases();
    const Object object = list != nullptr ? list->as<ListView>().selectedObject() : entry_->object();
    if (!object)
        return;
    const auto dialog = dialogs::makeNodeEdit(window_->environment(), window_->Path, object);
    if (releases != window_->releases() || !window_->ask(dialog) || !dialog->propChanged())
        return;
    if (list != nullptr)
        list->as<ListView>().refreshObject(object);
    dataChanged();
}

/// The tree first: the entry that is shown may be gone.
void ExplorerPane::dataChanged() {
    const std::uint64_t releases = window_->releases();
    const Entry entry = entry_;
    window_->contentsChanged();
    if (releases == window_->releases() && active_ && entry == entry_)
        refill();
}

}  // namespace quorel::explorer

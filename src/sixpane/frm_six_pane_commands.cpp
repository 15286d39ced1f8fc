// The commands as the user meets them: buttons, entries of menus, keys, and when they can be chosen.

#include <algorithm>

#include "platform/ui/glyphs.h"
#include "sixpane/frm_six_pane.h"

namespace quorel::sixpane {

namespace {

constexpr ui::KeyChord keyOf(Deed deed) noexcept {
    return {deed == Deed::Make ? ui::Key::Insert : ui::Key::Delete};
}

ui::glyphs::Shared pictureOf(const CommandTraits& command) {
    if (command.deed == Deed::Delete)
        return ui::glyphs::remove();
    return command.command == Command::NewLink ? ui::glyphs::newLink() : ui::glyphs::newNode();
}

}  // namespace

void frmSixPane::addButtons(Pane which) {
    for (const CommandTraits& command : kCommands) {
        if (command.pane != which)
            continue;
        ui::Button& button = add<ui::Button>(command.name);
        button.setText(command.text);
        button.setToolTip(std::u16string(command.text) +
                          (command.deed == Deed::Make ? u" (Ins)" : u" (Del)"));
        button.setGlyph(pictureOf(command));
        button.onClick.connect([this, chosen = command.command] { run(chosen); });
        commands_[indexOf(command.command)] = &button;
    }
}

void frmSixPane::buildCommands() {
    for (const CommandTraits& command : kCommands) {
        ui::Menu& menu = pane(command.pane).list().contextMenu();
        if (command.deed == Deed::Make)
            menu.addSeparator();
        ui::MenuItem& entry = menu.add(command.name, command.caption, keyOf(command.deed));
        entry.onClick.connect([this, chosen = command.command] { run(chosen); });
        commandEntries_[indexOf(command.command)] = &entry;
    }
    for (const PaneTraits& traits : kPanes) {
        const Pane which = traits.pane;
        pane(which).onSelectionChanged.connect([this] { enableCommands(); });
        pane(which).list().onKeyDown.connect([this, which](ui::KeyEvent& event) { keyInPane(which, event); });
    }
}

void frmSixPane::buildDynamicMenu() {
    ui::MenuItem& edit = *menuBar().find(u"mnuEdit");
    for (std::size_t index = 0; index < kDynamicCount; ++index) {
        const DynamicTraits& traits = kDynamic[index];
        ui::Menu& menu = pane(traits.pane).list().contextMenu();
        if (traits.deed == Deed::Make) {
            metamodelEntries_.push_back(&edit.addSeparator());
            metamodelEntries_.push_back(&menu.addSeparator());
        }
        dynamicEntries_[index] = {&edit.add(traits.name, traits.caption),
                                  &menu.add(traits.name, traits.paneCaption, keyOf(traits.deed))};
        for (ui::MenuItem* const entry : dynamicEntries_[index]) {
            entry->onClick.connect([this, index] { Dynamic_Click(index); });
            metamodelEntries_.push_back(entry);
        }
    }
    CheckDynamic();
    enableCommands();
}

void frmSixPane::keyInPane(Pane which, ui::KeyEvent& event) {
    const auto isKeyOf = [&](const auto& traits) {
        return traits.pane == which && event.chord == keyOf(traits.deed);
    };
    if (const auto* const command = std::find_if(kCommands.begin(), kCommands.end(), isKeyOf);
        command != kCommands.end()) {
        event.handled = true;
        if (canRun(command->command))
            run(command->command);
        return;
    }
    const auto* const dynamic = std::find_if(kDynamic.begin(), kDynamic.end(), isKeyOf);
    const auto index = static_cast<std::size_t>(dynamic - kDynamic.begin());
    if (index == kDynamicCount || !editsMetamodel_)
        return;
    event.handled = true;
    if (canRunDynamic(index))
        Dynamic_Click(index);
}

bool frmSixPane::canRun(Command command) {
    const auto isChosen = [this](Pane which) { return static_cast<bool>(pane(which).selectedObject()); };
    switch (command) {
        case Command::NewSourceNode:
            return isChosen(Pane::SourceMetaNode);
        case Command::NewTargetNode:
            return isChosen(Pane::TargetMetaNode);
        case Command::NewLink:
            return isChosen(Pane::MetaLink) && isChosen(Pane::SourceNode) && isChosen(Pane::TargetNode);
        case Command::DeleteSourceNode:
        case Command::DeleteTargetNode:
        case Command::DeleteLink:
            return isChosen(kCommands[indexOf(command)].pane);
    }
    return false;
}

bool frmSixPane::canRunDynamic(std::size_t index) {
    const DynamicTraits& traits = kDynamic[index];
    const auto isChosen = [this](Pane which) { return static_cast<bool>(pane(which).selectedObject()); };
    if (traits.deed == Deed::Delete)
        return isChosen(traits.pane);
    if (traits.pane == Pane::MetaLink)
        return isChosen(Pane::SourceMetaNode) && isChosen(Pane::TargetMetaNode);
    return IsObjectSet(repository_);
}

void frmSixPane::enableCommands() {
    for (const CommandTraits& command : kCommands) {
        const std::size_t index = indexOf(command.command);
        const bool can = canRun(command.command);
        // The list is where the user goes on, not whatever control comes next.
        if (!can && commands_[index]->hasFocus())
            pane(command.pane).list().focus();
        commands_[index]->setEnabled(can);
        commandEntries_[index]->setEnabled(can);
    }
    for (std::size_t index = 0; index < kDynamicCount; ++index)
        for (ui::MenuItem* const entry : dynamicEntries_[index])
            entry->setEnabled(canRunDynamic(index));
}

void frmSixPane::run(Command command) {
    switch (command) {
        case Command::NewSourceNode:
            return NewSourceNode_Click();
        case Command::NewTargetNode:
            return NewTargetNode_Click();
        case Command::NewLink:
            return NewLink_Click();
        case Command::DeleteSourceNode:
            return DeleteSourceNode_Click();
        case Command::DeleteTargetNode:
            return DeleteTargetNode_Click();
        case Command::DeleteLink:
            return DeleteLink_Click();
    }
}

}  // namespace quorel::sixpane

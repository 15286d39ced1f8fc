// Trees, tabs and panels that scroll, as the user handles them.

#include "platform/automation/text.h"
#include "platform/headless/quoted.h"
#include "platform/headless/user.h"
#include "platform/ui/dialog_keys.h"

namespace quorel::headless {

namespace {

using ui::Key;
using ui::KeyChord;
using ui::TreeItemId;

constexpr int kItemsOfPage = 20;

/// As many steps as there are, up to `steps`.
template <class Step>
[[nodiscard]] TreeItemId walk(TreeItemId from, int steps, Step&& step) {
    for (; steps > 0; --steps) {
        const TreeItemId next = step(from);
        if (next == TreeItemId::None)
            break;
        from = next;
    }
    return from;
}

/// Where a key leads that only moves the selection; `None` for another key.
[[nodiscard]] TreeItemId itemAfterKey(const ui::Tree& tree, Key key) {
    const TreeItemId first = tree.firstChild(TreeItemId::Root), at = tree.selected();
    const auto down = [&](TreeItemId item) { return tree.shownAfter(item); };
    const auto up = [&](TreeItemId item) { return tree.shownBefore(item); };
    switch (key) {
        case Key::Up:
            return at == TreeItemId::None ? first : walk(at, 1, up);
        case Key::Down:
            return at == TreeItemId::None ? first : walk(at, 1, down);
        case Key::PageUp:
            return at == TreeItemId::None ? first : walk(at, kItemsOfPage, up);
        case Key::PageDown:
            return at == TreeItemId::None ? first : walk(at, kItemsOfPage, down);
        case Key::Home:
            return first;
        case Key::End:
            return tree.lastShown();
        case Key::Backspace:
            return tree.parentOf(at) != TreeItemId::Root ? tree.parentOf(at) : at;
        default:
            return TreeItemId::None;
    }
}

}  // namespace

ui::TreeItemId itemAt(const ui::Tree& tree, std::initializer_list<std::u16string_view> path) {
    TreeItemId at = TreeItemId::Root;
    for (const std::u16string_view text : path) {
        at = tree.firstChild(at);
        while (at != TreeItemId::None && tree.itemText(at) != text)
            at = tree.nextSibling(at);
        if (at == TreeItemId::None)
            throw CannotDo(quoted(tree.name()) + " has no item " + quoted(text) + " there");
    }
    return at;
}

void User::reachItem(const ui::Tree& tree, TreeItemId item) const {
    if (!tree.contains(item))
        throw CannotDo(quoted(tree.name()) + " has no such item");
    if (!tree.isItemShown(item))
        throw CannotDo("what is above " + quoted(tree.itemText(item)) + " is closed in " +
                       quoted(tree.name()));
}

void User::toggle(ui::Tree& tree, TreeItemId item) {
    if (tree.isExpanded(item))
        tree.userCollapsed(item);
    else
        tree.userExpands(item);
}

void User::clickItem(ui::Tree& tree, TreeItemId item) {
    const auto form = reach(tree);
    reachItem(tree, item);
    form->userFocused(&tree);
    if (tree.isUsable())
        tree.userSelected(item);
    desktop_.runPosted();
}

void User::doubleClickItem(ui::Tree& tree, TreeItemId item) {
    const auto form = reach(tree);
    clickItem(tree, item);
    if (tree.isUsable() && tree.isItemShown(item))
        tree.userActivated(item);
    if (tree.isUsable() && tree.isItemShown(item))
        toggle(tree, item);
    desktop_.runPosted();
}

void User::clickItemButton(ui::Tree& tree, TreeItemId item) {
    const auto form = reach(tree);
    reachItem(tree, item);
    if (!tree.mayHaveChildren(item))
        throw CannotDo("the item " + quoted(tree.itemText(item)) + " has no button");
    form->userFocused(&tree);
    if (tree.isUsable())
        toggle(tree, item);
    desktop_.runPosted();
}

void User::chooseContextMenu(ui::Tree& tree, TreeItemId item, std::u16string_view entry) {
    const auto form = reach(tree);
    reachItem(tree, item);
    form->userFocused(&tree);
    if (tree.isUsable() && tree.selected() != item)
        tree.userSelected(item);
    if (tree.isUsable())
        chooseContextMenu(static_cast<ui::Control&>(tree), entry);
}

std::vector<std::u16string> User::look(ui::Tree& tree) {
    const auto form = reach(tree);
    std::vector<std::u16string> texts;
    for (const TreeItemId item : dynamic_cast<HeadlessPeer&>(*tree.peer()).itemsInView()) {
        std::u16string text = tree.itemText(item);
        // Whoever is asked for a text may end the window.
        if (!tree.isShown())
            break;
        texts.push_back(std::move(text));
    }
    desktop_.runPosted();
    return texts;
}

void User::scrollTo(ui::Tree& tree, std::size_t topLine) {
    const auto form = reach(tree);
    dynamic_cast<HeadlessPeer&>(*tree.peer()).scrollTo(topLine);
    desktop_.runPosted();
}

void User::clickTab(ui::TabStrip& strip, std::size_t index) {
    const auto form = reach(strip);
    if (index >= strip.tabs().size() || !strip.tabs()[index].visible)
        throw CannotDo(quoted(strip.name()) + " shows no tab " + std::to_string(index));
    form->userFocused(&strip);
    if (strip.isUsable())
        strip.userSelected(index);
    desktop_.runPosted();
}

void User::scrollTo(ui::ScrollPanel& panel, ui::Twips top) {
    const auto form = reach(panel);
    if (!panel.scrolls())
        throw CannotDo(quoted(panel.name()) + " has no scroll bar");
    panel.userScrolled(top);
    desktop_.runPosted();
}

bool User::pressInTree(ui::Tree& tree, KeyChord chord) {
    const TreeItemId at = tree.selected();
    if (chord == KeyChord{Key::Enter} && ui::wantsKey(tree, chord)) {
        tree.userActivated(at);
        return true;
    }
    if (chord.modifiers != ui::Modifiers::None || tree.itemCount() == 0)
        return false;
    TreeItemId to = itemAfterKey(tree, chord.key);
    if (chord.key == Key::Left && !tree.isExpanded(at))
        to = itemAfterKey(tree, Key::Backspace);
    if (chord.key == Key::Right && tree.isExpanded(at))
        to = tree.firstChild(at);
    if (to != TreeItemId::None) {
        if (to != at)
            tree.userSelected(to);
        return true;
    }
    if (chord.key == Key::Left || chord.key == Key::Subtract)
        tree.userCollapsed(at);
    else if (chord.key == Key::Right || chord.key == Key::Add)
        tree.userExpands(at);
    else
        return chord.key == Key::Multiply;
    return true;
}

bool User::pressInTabs(ui::TabStrip& strip, KeyChord chord) {
    if (chord != KeyChord{Key::Left} && chord != KeyChord{Key::Right})
        return false;
    if (const auto next = strip.neighbour(chord.key == Key::Right))
        strip.userSelected(*next);
    return true;
}

}  // namespace quorel::headless

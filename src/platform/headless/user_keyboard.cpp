#include <algorithm>
#include <array>

#include "platform/automation/text.h"
#include "platform/headless/user.h"
#include "platform/ui/dialog_keys.h"

namespace quorel::headless {

namespace {

using ui::Key;
using ui::KeyChord;
using ui::Modifiers;

constexpr std::size_t kRowsOfPage = 20;
constexpr ui::Twips kSplitterStep{150};

[[nodiscard]] bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
[[nodiscard]] bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// How many units the character at the front takes.
[[nodiscard]] std::size_t characterSize(std::u16string_view text) {
    return text.size() > 1 && isHighSurrogate(text[0]) && isLowSurrogate(text[1]) ? 2 : 1;
}

/// The key that makes the character, as far as keys are told apart here.
[[nodiscard]] KeyChord chordOf(std::u16string_view character) {
    const char16_t unit = character.front();
    if (unit >= u'a' && unit <= u'z')
        return {static_cast<Key>(unit - u'a' + u'A')};
    if (unit >= u'A' && unit <= u'Z')
        return {static_cast<Key>(unit), Modifiers::Shift};
    if ((unit >= u'0' && unit <= u'9') || unit == u' ')
        return {static_cast<Key>(unit)};
    return {};
}

[[nodiscard]] std::u16string withoutLastCharacter(std::u16string text) {
    if (text.size() > 1 && isLowSurrogate(text.back()) && isHighSurrogate(text[text.size() - 2]))
        text.pop_back();
    if (!text.empty())
        text.pop_back();
    return text;
}

[[nodiscard]] std::size_t rowAfterKey(const ui::VirtualList& list, Key key) {
    const std::size_t last = list.rowCount() - 1;
    if (!list.selectedRow())
        return key == Key::End ? last : 0;
    const std::size_t row = *list.selectedRow();
    switch (key) {
        case Key::Up:
            return row > 0 ? row - 1 : 0;
        case Key::PageUp:
            return row > kRowsOfPage ? row - kRowsOfPage : 0;
        case Key::Down:
            return std::min(row + 1, last);
        case Key::PageDown:
            return std::min(row + kRowsOfPage, last);
        case Key::End:
            return last;
        default:
            return 0;
    }
}

}  // namespace

void User::press(ui::Form& form, KeyChord chord) {
    const auto alive = reach(form);
    if (!form.userKeyDown(chord)) {
        ui::Control* const focused = form.focusedControl();
        if (focused != nullptr && !focused->isUsable())
            throw CannotDo("the focus is on a control that is not usable");
        if (focused != nullptr)
            pressOwnKey(form, *focused, chord);
        else
            static_cast<void>(ui::pressDialogKey(form, chord));
    }
    desktop_.runPosted();
}

void User::pressOwnKey(ui::Form& form, ui::Control& focused, KeyChord chord) {
    bool used = false;
    if (auto* const list = dynamic_cast<ui::VirtualList*>(&focused))
        used = pressInList(*list, chord);
    else if (auto* const box = dynamic_cast<ui::TextBox*>(&focused))
        used = pressInBox(*box, chord);
    else if (auto* const combo = dynamic_cast<ui::ComboBox*>(&focused))
        used = pressInCombo(*combo, chord);
    else if (auto* const splitter = dynamic_cast<ui::Splitter*>(&focused))
        used = pressInSplitter(*splitter, chord);
    else if (auto* const tree = dynamic_cast<ui::Tree*>(&focused))
        used = pressInTree(*tree, chord);
    else if (auto* const strip = dynamic_cast<ui::TabStrip*>(&focused))
        used = pressInTabs(*strip, chord);
    if (!used)
        static_cast<void>(ui::pressDialogKey(form, chord));
}

bool User::pressInList(ui::VirtualList& list, KeyChord chord) const {
    if (chord == KeyChord{Key::Enter} && ui::wantsKey(list, chord)) {
        list.userActivated();
        return true;
    }
    static constexpr std::array kMoves = {Key::Up,       Key::Down, Key::PageUp,
                                          Key::PageDown, Key::Home, Key::End};
    if (chord.modifiers != Modifiers::None || list.rowCount() == 0 ||
        std::find(kMoves.begin(), kMoves.end(), chord.key) == kMoves.end())
        return false;
    const std::size_t row = rowAfterKey(list, chord.key);
    if (list.selectedRow() != row)
        moveSelection(list, row);
    return true;
}

bool User::pressInBox(ui::TextBox& box, KeyChord chord) const {
    if (chord == KeyChord{ui::key('A'), Modifiers::Control}) {
        box.selectAll();
        return true;
    }
    if (chord == KeyChord{ui::key('C'), Modifiers::Control}) {
        if (box.isAllSelected())
            desktop_.setClipboardText(box.text());
        return true;
    }
    if (box.isReadOnly())
        return false;
    if (chord == KeyChord{ui::key('V'), Modifiers::Control}) {
        box.userTyped((box.isAllSelected() ? std::u16string() : box.text()) + desktop_.clipboardText());
        return true;
    }
    if (chord == KeyChord{Key::Backspace}) {
        box.userTyped(box.isAllSelected() ? std::u16string() : withoutLastCharacter(box.text()));
        return true;
    }
    if (chord == KeyChord{Key::Enter} && box.isMultiLine()) {
        box.userTyped(box.text() + u"\r\n");
        return true;
    }
    return false;
}

bool User::pressInCombo(ui::ComboBox& box, KeyChord chord) {
    if (chord == KeyChord{Key::Backspace} && box.isEditable()) {
        box.userTyped(withoutLastCharacter(box.text()));
        return true;
    }
    const bool ends = !box.isEditable() && (chord == KeyChord{Key::Home} || chord == KeyChord{Key::End});
    if (box.items().empty() || (!ends && chord != KeyChord{Key::Up} && chord != KeyChord{Key::Down}))
        return false;
    const std::size_t last = box.items().size() - 1;
    std::size_t next = chord.key == Key::End ? last : 0;
    if (!ends && box.listIndex())
        next = chord.key == Key::Down ? std::min(*box.listIndex() + 1, last)
                                      : std::max<std::size_t>(*box.listIndex(), 1) - 1;
    box.userChose(next);
    return true;
}

/// A list goes to its next item that begins so.
void User::typeInCombo(ui::ComboBox& box, std::u16string_view character) {
    if (box.isEditable())
        return box.userTyped(box.text() + std::u16string(character));
    const KeyChord wanted = chordOf(character);
    const std::size_t count = box.items().size();
    const std::size_t start = box.listIndex() ? *box.listIndex() + 1 : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::u16string& item = box.items()[(start + i) % count];
        if (!item.empty() && chordOf(item).key == wanted.key && wanted.key != Key::None)
            return box.userChose((start + i) % count);
    }
}

bool User::pressInSplitter(ui::Splitter& splitter, KeyChord chord) {
    const bool vertical = splitter.orientation() == ui::Orientation::Vertical;
    const ui::Twips at = vertical ? splitter.bounds().left : splitter.bounds().top;
    if (chord == KeyChord{vertical ? Key::Left : Key::Up}) {
        splitter.userMoved(at - kSplitterStep);
        return true;
    }
    if (chord == KeyChord{vertical ? Key::Right : Key::Down}) {
        splitter.userMoved(at + kSplitterStep);
        return true;
    }
    return false;
}

void User::type(ui::Form& form, std::u16string_view text) {
    const auto alive = reach(form);
    Typed typed;
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        typeUnit(form, text.substr(0, size), typed);
        text.remove_prefix(size);
        desktop_.runPosted();
    }
}

void User::typeUnit(ui::Form& form, std::u16string_view character, Typed& typed) {
    if (!form.isShown())
        throw CannotDo("the form went away while the user was typing");
    const KeyChord chord = chordOf(character);
    if (chord.key != Key::None && form.userKeyDown(chord))
        return;
    ui::Control* const focused = form.focusedControl();
    if (focused == nullptr || !focused->isUsable())
        throw CannotDo("nothing has the focus to type into");
    if (auto* const box = dynamic_cast<ui::TextBox*>(focused)) {
        if (box->isReadOnly())
            throw CannotDo("'" + automation::toUtf8(box->name()) + "' is read-only");
        box->userTyped((box->isAllSelected() ? std::u16string() : box->text()) + std::u16string(character));
    } else if (auto* const list = dynamic_cast<ui::VirtualList*>(focused)) {
        typed.list += character;
        const std::size_t start = list->selectedRow().value_or(0);
        if (const auto found = list->userFinds(typed.list, start))
            if (list->selectedRow() != *found)
                moveSelection(*list, *found);
    } else if (auto* const tree = dynamic_cast<ui::Tree*>(focused)) {
        for (const char16_t unit : character)
            if (const ui::TreeItemId found = typed.tree.typed(*tree, unit, 0); found != tree->selected())
                tree->userSelected(found);
    } else if (auto* const combo = dynamic_cast<ui::ComboBox*>(focused)) {
        typeInCombo(*combo, character);
    } else if (chord == KeyChord{Key::Space}) {
        static_cast<void>(ui::pressDialogKey(form, chord));
    }
}

void User::enterText(ui::ComboBox& box, std::u16string_view text) {
    const auto form = reach(box);
    if (!box.isEditable())
        throw CannotDo("'" + automation::toUtf8(box.name()) + "' is only a list");
    form->userFocused(&box);
    if (box.isUsable())
        box.userTyped(text);
    desktop_.runPosted();
}

void User::enterText(ui::TextBox& box, std::u16string_view text) {
    const auto form = reach(box);
    if (box.isReadOnly())
        throw CannotDo("'" + automation::toUtf8(box.name()) + "' is read-only");
    form->userFocused(&box);
    if (box.isUsable())
        box.userTyped(text);
    desktop_.runPosted();
}

}  // namespace quorel::headless

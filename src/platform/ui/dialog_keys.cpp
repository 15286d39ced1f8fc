#include "platform/ui/dialog_keys.h"

#include <algorithm>
#include <vector>

#include "platform/ui/access_key.h"
#include "platform/ui/check_box.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/tab_order.h"
#include "platform/ui/tree.h"
#include "platform/ui/virtual_list.h"

namespace quorel::ui {

namespace {

/// Through the peer, which reports the new focus as the user's doing.
bool moveFocus(Control* target) {
    if (target == nullptr || target->peer() == nullptr)
        return false;
    target->peer()->takeFocus();
    return true;
}

[[nodiscard]] bool isPressable(const Control* control) noexcept {
    return dynamic_cast<const Button*>(control) != nullptr ||
           dynamic_cast<const CheckBox*>(control) != nullptr;
}

/// Clicks a button, turns a check box over.
bool press(Control* control) {
    if (control == nullptr || !control->isUsable())
        return false;
    if (auto* const button = dynamic_cast<Button*>(control))
        button->userClicked();
    else if (auto* const box = dynamic_cast<CheckBox*>(control))
        box->userToggled();
    else
        return false;
    return true;
}

void collectKeyed(const Container& container, char16_t key, std::vector<Control*>& found) {
    for (const std::unique_ptr<Control>& child : container.children()) {
        if (!child->isVisible() || !child->isEnabled())
            continue;
        const bool captioned = dynamic_cast<const Label*>(child.get()) != nullptr || isPressable(child.get());
        if (captioned && accessKey(child->text()) == key)
            found.push_back(child.get());
        if (const auto* inner = dynamic_cast<const Container*>(child.get()))
            collectKeyed(*inner, key, found);
    }
}

/// The first of several bearers after the focused control is only focused, as the platform does.
bool pressAccessKey(Form& form, char16_t key) {
    std::vector<Control*> bearers;
    collectKeyed(form, key, bearers);
    if (bearers.empty())
        return false;
    const auto focused = std::find(bearers.begin(), bearers.end(), form.focusedControl());
    const bool alone = bearers.size() == 1;
    Control* const bearer = focused == bearers.end() || std::next(focused) == bearers.end()
                                ? bearers.front()
                                : *std::next(focused);
    if (!isPressable(bearer))
        return moveFocus(nextTabStop(form, bearer));
    moveFocus(bearer);
    return alone ? press(bearer) : true;
}

bool pressEnter(Form& form) {
    auto* const focused = dynamic_cast<Button*>(form.focusedControl());
    return press(focused) || press(form.defaultButton());
}

}  // namespace

bool wantsKey(const Control& focused, KeyChord chord) noexcept {
    if (chord != KeyChord{Key::Enter})
        return false;
    if (const auto* box = dynamic_cast<const TextBox*>(&focused))
        return box->isMultiLine();
    if (const auto* list = dynamic_cast<const VirtualList*>(&focused))
        return list->selectedRow().has_value() && list->onActivate.isConnected();
    if (const auto* tree = dynamic_cast<const Tree*>(&focused))
        return tree->selected() != TreeItemId::None && tree->onActivate.isConnected();
    return false;
}

bool pressDialogKey(Form& form, KeyChord chord) {
    const auto alive = form.weak_from_this().lock();
    Control* const focused = form.focusedControl();
    if (focused != nullptr && wantsKey(*focused, chord))
        return false;
    if (chord == KeyChord{Key::Tab})
        return moveFocus(nextTabStop(form, focused));
    if (chord == KeyChord{Key::Tab, Modifiers::Shift})
        return moveFocus(previousTabStop(form, focused));
    if (chord == KeyChord{Key::Enter})
        return pressEnter(form);
    if (chord == KeyChord{Key::Escape})
        return press(form.cancelButton());
    if (chord == KeyChord{Key::Space})
        return press(focused);
    if (chord == KeyChord{Key::Left, Modifiers::Alt} || chord == KeyChord{Key::Right, Modifiers::Alt})
        return form.userNavigated(chord.key == Key::Left ? Navigation::Back : Navigation::Forward);
    if (chord.modifiers == Modifiers::Alt)
        return pressAccessKey(form, static_cast<char16_t>(chord.key));
    return false;
}

}  // namespace quorel::ui

#include "platform/ui/menu.h"

#include <utility>

#include "platform/ui/control.h"
#include "platform/ui/form.h"

namespace quorel::ui {

MenuItem& MenuItem::add(std::u16string_view name, std::u16string_view caption, KeyChord shortcut) {
    MenuItem& item = *items_.emplace_back(std::make_unique<MenuItem>(name, caption, shortcut));
    item.parent_ = this;
    changed();
    return item;
}

MenuItem& MenuItem::addSeparator() {
    return add({}, u"-");
}

MenuItem* MenuItem::find(std::u16string_view name) const noexcept {
    for (const std::unique_ptr<MenuItem>& item : items_) {
        if (item->name_ == name)
            return item.get();
        if (MenuItem* const found = item->find(name))
            return found;
    }
    return nullptr;
}

MenuItem* MenuItem::findShortcut(KeyChord chord) const noexcept {
    if (chord.key == Key::None)
        return nullptr;
    for (const std::unique_ptr<MenuItem>& item : items_) {
        if (!item->visible_ || !item->enabled_)
            continue;
        if (item->shortcut_ == chord)
            return item.get();
        if (MenuItem* const found = item->findShortcut(chord))
            return found;
    }
    return nullptr;
}

void MenuItem::setCaption(std::u16string_view caption) {
    caption_ = caption;
    changed();
}

void MenuItem::setVisible(bool visible) {
    if (std::exchange(visible_, visible) != visible)
        changed();
}

void MenuItem::setEnabled(bool enabled) {
    if (std::exchange(enabled_, enabled) != enabled)
        changed();
}

void MenuItem::setChecked(bool checked) {
    if (std::exchange(checked_, checked) != checked)
        changed();
}

bool MenuItem::isChoosable() const noexcept {
    for (const MenuItem* item = this; item != nullptr; item = item->parent_)
        if (!item->visible_ || !item->enabled_)
            return false;
    return true;
}

void MenuItem::userClicked() {
    if (!isChoosable())
        return;
    const auto alive = keepFormAlive();
    onClick.raise();
}

void MenuItem::changed() {
    if (parent_ != nullptr)
        parent_->changed();
}

std::shared_ptr<const Form> MenuItem::keepFormAlive() const noexcept {
    return parent_ != nullptr ? parent_->keepFormAlive() : nullptr;
}

std::shared_ptr<const Form> Menu::keepFormAlive() const noexcept {
    return owner_.keepFormAlive();
}

void MenuBar::changed() {
    if (form_.peer() != nullptr)
        form_.peer()->apply(Change::Menu);
}

std::shared_ptr<const Form> MenuBar::keepFormAlive() const noexcept {
    return form_.weak_from_this().lock();
}

}  // namespace quorel::ui

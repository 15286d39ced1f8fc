#include "platform/ui/control.h"

#include <algorithm>
#include <utility>

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"

namespace quorel::ui {

Control::Control(std::u16string_view name) : name_(name) {}

Control::~Control() = default;

const Control& Control::root() const noexcept {
    const Control* control = this;
    while (control->parent_ != nullptr)
        control = control->parent_;
    return *control;
}

Form* Control::form() noexcept {
    return const_cast<Form*>(root().asForm());  // reached from a control that is not constant
}

std::shared_ptr<const Form> Control::keepFormAlive() const noexcept {
    const Form* holder = root().asForm();
    return holder != nullptr ? holder->weak_from_this().lock() : nullptr;
}

void Control::changed(Change changes) {
    if (peer_)
        peer_->apply(changes);
}

void Control::setBounds(const Rect& bounds) {
    if (bounds_ == bounds)
        return;
    bounds_ = bounds;
    changed(Change::Bounds);
    boundsChanged();
}

void Control::setText(std::u16string_view text) {
    if (text_ == text)
        return;
    text_ = text;
    textSet();
    changed(Change::Text);
}

void Control::setVisible(bool visible) {
    if (visible_ == visible)
        return;
    visible_ = visible;
    if (peer_)
        changed(Change::Visible);
    else if (visible && parent_ != nullptr && parent_->peer_)
        realize();
    usabilityChanged();
}

void Control::setEnabled(bool enabled) {
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    changed(Change::Enabled);
    usabilityChanged();
}

void Control::usabilityChanged() {
    Form* const holder = form();
    if (holder != nullptr && holder->isShown() && holder->focused_ != nullptr)
        holder->repairFocus();
}

void Control::setToolTip(std::u16string_view text) {
    if (toolTip_ == text)
        return;
    toolTip_ = text;
    changed(Change::ToolTip);
}

void Control::setBackground(std::optional<Colour> colour) {
    if (background_ == colour)
        return;
    background_ = colour;
    changed(Change::Colours);
}

Menu& Control::contextMenu() {
    if (!contextMenu_)
        contextMenu_ = std::make_unique<Menu>(*this);
    return *contextMenu_;
}

Menu* Control::userContextMenu() {
    const auto alive = keepFormAlive();
    onContextMenu.raise();
    if (!contextMenu_ || !isUsable())
        return nullptr;
    const auto& items = contextMenu_->items();
    const bool any =
        std::any_of(items.begin(), items.end(), [](const auto& item) { return item->isVisible(); });
    return any ? contextMenu_.get() : nullptr;
}

void Control::popUpMenu(MenuItem& menu, MenuPlace place) {
    const auto alive = keepFormAlive();
    const auto menuAlive = menu.keepFormAlive();
    if (peer_ && isUsable())
        peer_->popUpMenu(menu, place);
}

void Control::focus() {
    Form* const holder = form();
    if (holder == nullptr || (holder->isShown() && !isUsable()))
        return;
    holder->focused_ = this;
    bringIntoView();
    if (peer_ && holder->isShown())
        peer_->takeFocus();
}

void Control::bringIntoView() {
    for (Container* above = parent_; above != nullptr; above = above->parent())
        above->reveal(*this);
}

bool Control::hasFocus() const noexcept {
    const Form* const holder = root().asForm();
    return holder != nullptr && holder->focused_ == this;
}

bool Control::isShown() const noexcept {
    const Control* control = this;
    for (; control->visible_ && control->parent_ != nullptr; control = control->parent_) {
    }
    return control->visible_ && control->asForm() != nullptr;
}

bool Control::isUsable() const noexcept {
    for (const Control* control = this; control != nullptr; control = control->parent_)
        if (!control->enabled_)
            return false;
    return isShown();
}

void Control::realize() {
    if (!visible_ || peer_)
        return;
    if (Form* const holder = form())
        peer_ = holder->desktop().makePeer(*this);
}

void Control::unrealize() noexcept {
    const std::unique_ptr<Peer> gone = std::move(peer_);
}

Container::~Container() = default;

void Container::adopt(std::unique_ptr<Control> control) {
    control->parent_ = this;
    Control& adopted = *children_.emplace_back(std::move(control));
    if (peer())
        adopted.realize();
}

void Container::realize() {
    Control::realize();
    if (!peer())
        return;
    for (const std::unique_ptr<Control>& child : children_)
        child->realize();
}

void Container::unrealize() noexcept {
    for (const std::unique_ptr<Control>& child : children_)
        child->unrealize();
    Control::unrealize();
}

void Container::clear() {
    const auto alive = keepFormAlive();
    Form* const holder = form();
    const Control* focused = holder != nullptr ? holder->focused_ : nullptr;
    while (focused != nullptr && focused->parent_ != this)
        focused = focused->parent_;
    if (focused != nullptr)
        holder->focused_ = nullptr;
    {
        const std::vector<std::unique_ptr<Control>> gone = std::exchange(children_, {});
        for (const std::unique_ptr<Control>& child : gone)
            child->unrealize();
    }
    if (focused == nullptr || !holder->isShown())
        return;
    holder->focused_ = nullptr;  // the system gives the focus of a window that ends to the one around it
    holder->repairFocus();
}

void Container::dropHiddenPeers() noexcept {
    if (!isVisible())
        unrealize();
}

Control* Container::find(std::u16string_view name) const noexcept {
    for (const std::unique_ptr<Control>& child : children_) {
        if (child->name() == name)
            return child.get();
        const auto* container = dynamic_cast<const Container*>(child.get());
        if (Control* const found = container != nullptr ? container->find(name) : nullptr)
            return found;
    }
    return nullptr;
}

void Panel::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

}  // namespace quorel::ui

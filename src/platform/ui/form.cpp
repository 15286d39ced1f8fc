#include "platform/ui/form.h"

#include <algorithm>

#include "platform/automation/error.h"
#include "platform/ui/control_visitor.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/tab_order.h"

namespace quorel::ui {

namespace {

constexpr std::int32_t kShownAlready = 400;

[[nodiscard]] Size largerOf(Size a, Size b) {
    return {std::max(a.width, b.width), std::max(a.height, b.height)};
}

}  // namespace

Form::Form(Desktop& desktop, std::u16string_view name) : Container(name), desktop_(desktop) {
    Control::setVisible(false);
    setTabStop(false);
}

Form::~Form() {
    loaded_ = false;
    modal_ = false;
    visible_ = false;
    focused_ = nullptr;
    Container::unrealize();
}

void Form::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Form::load() {
    if (loaded_)
        return;
    const auto alive = keepFormAlive();
    loaded_ = true;
    onLoad.raise();
}

void Form::show(Modality modality) {
    const auto alive = keepFormAlive();
    if (modality == Modality::Modal && isVisible())
        throw automation::Error(kShownAlready, u"Form already displayed; can't show modally", name());
    load();
    if (!loaded_)
        return;
    if (!isVisible()) {
        visible_ = true;
        modal_ = modality == Modality::Modal;
        realize();
    }
    changed(Change::Visible);
    repairFocus();
    takeFocus();
    if (modality == Modality::Modal && modal_) {
        desktop_.runModal(*this);
        modal_ = false;
    }
}

void Form::hide() {
    if (!isVisible())
        return;
    const auto alive = keepFormAlive();
    modal_ = false;
    visible_ = false;
    changed(Change::Visible);
}

void Form::refresh() {
    const auto alive = keepFormAlive();
    if (Peer* const shown = peer())
        shown->refresh();
}

void Form::setProgress(std::optional<double> progress) {
    if (progress_ == progress)
        return;
    progress_ = progress;
    changed(Change::Items);
}

void Form::unload() {
    if (!loaded_)
        return;
    const auto alive = keepFormAlive();
    hide();
    loaded_ = false;
    onUnload.raise();
    if (!loaded_)
        unrealize();
}

void Form::realize() {
    if (!peer())
        Container::realize();
}

void Form::repairFocus() {
    if (focused_ != nullptr && focused_->isUsable())
        return;
    focused_ = nextTabStop(*this, focused_);
    if (focused_ != nullptr)
        focused_->bringIntoView();
    takeFocus();
}

void Form::takeFocus() {
    if (focused_ != nullptr && focused_->peer() != nullptr)
        focused_->peer()->takeFocus();
}

void Form::setClientSize(Size size) {
    const Size wanted = largerOf(size, minimumClientSize_);
    if (wanted == clientSize_)
        return;
    const auto alive = keepFormAlive();
    clientSize_ = wanted;
    changed(Change::Bounds);
    onResize.raise();
}

void Form::setMinimumClientSize(Size size) {
    if (minimumClientSize_ == size)
        return;
    minimumClientSize_ = size;
    changed(Change::Style);
    setClientSize(clientSize_);
}

void Form::setResizable(bool resizable) {
    if (resizable_ == resizable)
        return;
    resizable_ = resizable;
    changed(Change::Style);
}

void Form::setPosition(Point position) {
    positioned_ = true;
    setBounds({position.x, position.y, bounds().width, bounds().height});
}

void Form::setMaximized(bool maximized) {
    if (maximized_ == maximized)
        return;
    maximized_ = maximized;
    changed(Change::Bounds);
}

MenuBar& Form::menuBar() {
    if (!menuBar_)
        menuBar_ = std::make_unique<MenuBar>(*this);
    return *menuBar_;
}

void Form::setDefaultButton(Button* button) {
    Button* const previous = std::exchange(defaultButton_, button);
    for (Button* const touched : {previous, button})
        if (touched != nullptr && touched->peer() != nullptr)
            touched->peer()->apply(Change::Style);
}

void Form::userResized(Size clientSize) {
    if (clientSize == clientSize_)
        return;
    const auto alive = keepFormAlive();
    clientSize_ = clientSize;
    onResize.raise();
}

void Form::userMoved(Point position, bool maximized) {
    maximized_ = maximized;
    positioned_ = true;
    bounds_.left = position.x;
    bounds_.top = position.y;
}

void Form::userClosed() {
    const auto alive = keepFormAlive();
    bool keepOpen = false;
    onQueryUnload.raise(keepOpen);
    if (!keepOpen)
        unload();
}

void Form::userFocused(Control* control) {
    if (focused_ == control)
        return;
    const auto alive = keepFormAlive();
    Control* const previous = std::exchange(focused_, control);
    if (control != nullptr)
        control->bringIntoView();
    if (previous != nullptr)
        previous->onLostFocus.raise();
    if (control != nullptr && focused_ == control && isVisible())
        control->onGotFocus.raise();
}

bool Form::userNavigated(Navigation where) {
    if (!onNavigate.isConnected() || !isUsable())
        return false;
    const auto alive = keepFormAlive();
    onNavigate.raise(where);
    return true;
}

bool Form::userDroppedFiles(const std::vector<std::u16string>& files) {
    if (!onDropFiles.isConnected() || !isUsable() || files.empty())
        return false;
    const auto alive = keepFormAlive();
    onDropFiles.raise(files);
    return true;
}

bool Form::userKeyDown(KeyChord chord) {
    const auto alive = keepFormAlive();
    if (MenuItem* const entry = menuBar_ ? menuBar_->findShortcut(chord) : nullptr) {
        entry->userClicked();
        return true;
    }
    KeyEvent event{chord};
    if (focused_ != nullptr)
        focused_->onKeyDown.raise(event);
    if (!event.handled && isVisible())
        onKeyDown.raise(event);
    return event.handled || !isVisible();
}

}  // namespace quorel::ui

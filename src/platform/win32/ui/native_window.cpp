#include "platform/win32/ui/native_window.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "platform/ui/form.h"
#include "platform/ui/shown_text.h"
#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr UINT_PTR kSubclass = 0x51;

/// The name under which a window keeps its NativeWindow. Each copy of this code in a process has its own, for
/// one must not take another's windows for its own.
[[nodiscard]] LPCWSTR ownerProperty() noexcept {
    static const std::array<wchar_t, 40> name = [] {
        std::array<wchar_t, 40> text{};
        const auto own = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&getControlNameMessage));
        ::wsprintfW(text.data(), L"QuorelWindow%08X%08X", static_cast<unsigned>(own >> 32),
                    static_cast<unsigned>(own));
        return text;
    }();
    return name.data();
}

}  // namespace

UINT getControlNameMessage() noexcept {
    static const UINT message = ::RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    return message;
}

NativeWindow* NativeWindow::of(HWND window) noexcept {
    return window != nullptr ? static_cast<NativeWindow*>(::GetPropW(window, ownerProperty())) : nullptr;
}

void NativeWindow::open(HWND parent) {
    const Serving serving(frame_);
    const Description description = describe();
    const ui::PixelRect place = placeAtOpening();
    handle_ = ::CreateWindowExW(description.extendedStyle, wide(description.className), L"",
                                description.style, place.left, place.top, place.right - place.left,
                                place.bottom - place.top, parent, nullptr, services().module, nullptr);
    if (handle_ == nullptr)
        throwLastError(u"CreateWindowEx");
    countMade(Counted::Window);
    self_ = shared_from_this();
    ::SetPropW(handle_, ownerProperty(), this);
    ::SetWindowSubclass(handle_, &NativeWindow::procedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
    if (parent != nullptr && ::IsWindowVisible(parent) != FALSE)
        standInTabOrder();
    if (control_->isRaised())
        ::SetWindowPos(handle_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    opened();
    send(WM_SETFONT, reinterpret_cast<WPARAM>(font()), FALSE);
    mirror(ui::Change::All);
}

/// Screen readers take a control's name from the label before it, so windows made late stand where they
/// belong.
void NativeWindow::standInTabOrder() const {
    HWND before = HWND_TOP;
    for (const auto& sibling : control_->parent()->children()) {
        if (sibling.get() == control_)
            break;
        const HWND window = handleOf(*sibling);
        if (window != nullptr && !sibling->isRaised())
            before = window;
    }
    ::SetWindowPos(handle_, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void NativeWindow::retire() noexcept {
    control_ = nullptr;
    if (handle_ == nullptr)
        return;
    const NativeScope scope(services().controls);
    const auto frame = frame_;
    frame->destroy(handle_);
}

void NativeWindow::apply(ui::Change changes) {
    if (handle_ == nullptr || control_ == nullptr)
        return;
    const auto keep = shared_from_this();
    const NativeScope scope(services().controls);
    mirror(changes);
}

void NativeWindow::takeFocus() {
    if (handle_ == nullptr)
        return;
    const auto keep = shared_from_this();
    const NativeScope scope(services().controls);
    ::SetFocus(handle_);
    const HWND focus = ::GetFocus();
    if (handle_ != nullptr &&
        (focus == handle_ || (::IsChild(handle_, focus) != FALSE && of(focus) == nullptr)))
        focused();
}

void NativeWindow::setLocked(bool locked) noexcept {
    locked_ = locked;
    if (handle_ != nullptr)
        ::EnableWindow(handle_, !locked_ && (control_ == nullptr || control_->isEnabled()));
}

ui::PixelRect NativeWindow::place() const {
    ui::Rect bounds = control_->bounds();
    if (const ui::Container* const parent = control_->parent())
        bounds.top -= parent->scrolled();
    return toPixels(bounds, dpi());
}

void NativeWindow::commanded(WORD) {}

std::optional<LRESULT> NativeWindow::notified(NMHDR&) {
    return std::nullopt;
}

HBRUSH NativeWindow::colours(HDC dc) {
    const std::optional<ui::Colour> colour = background();
    ::SetBkMode(dc, OPAQUE);
    if (!colour) {
        ::SetBkColor(dc, ::GetSysColor(COLOR_BTNFACE));
        return ::GetSysColorBrush(COLOR_BTNFACE);
    }
    ::SetBkColor(dc, toColorRef(*colour));
    if (::IsWindowEnabled(handle_) != FALSE)
        ::SetTextColor(dc, readableOn(*colour));
    return services().tools.brush(*colour);
}

std::optional<ui::Colour> NativeWindow::background() const {
    for (const ui::Control* control = control_; control != nullptr; control = control->parent())
        if (control->background())
            return control->background();
    return std::nullopt;
}

void NativeWindow::fillBackground(HDC dc) const {
    RECT client{};
    ::GetClientRect(handle_, &client);
    const std::optional<ui::Colour> colour = background();
    ::FillRect(dc, &client, colour ? services().tools.brush(*colour) : ::GetSysColorBrush(COLOR_BTNFACE));
}

void NativeWindow::rescaled() {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(font()), TRUE);
    if (control_ != nullptr)
        mirror(ui::Change::Bounds);
}

void NativeWindow::mirror(ui::Change changes) {
    if (has(changes, ui::Change::Text))
        mirrorText();
    if (has(changes, ui::Change::Bounds))
        frame_->place(handle_, place());
    if (has(changes, ui::Change::Enabled))
        setLocked(locked_);
    if (has(changes, ui::Change::Visible))
        mirrorVisible();
    if (has(changes, ui::Change::Colours))
        ::InvalidateRect(handle_, nullptr, TRUE);
    if (has(changes, ui::Change::ToolTip) && (hasToolTip_ || !control_->toolTip().empty())) {
        hasToolTip_ = !control_->toolTip().empty();
        frame_->setToolTip(handle_, control_->toolTip());
    }
}

void NativeWindow::mirrorText() {
    setNativeText(ui::shownText(control_->text()));
}

void NativeWindow::mirrorVisible() {
    ::ShowWindow(handle_, control_->isVisible() ? SW_SHOWNA : SW_HIDE);
}

std::u16string NativeWindow::nativeText() const {
    std::u16string text(static_cast<std::size_t>(::GetWindowTextLengthW(handle_)) + 1, u'\0');
    const int length = ::GetWindowTextW(handle_, wideBuffer(text), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void NativeWindow::setNativeText(const std::u16string& shown) {
    ::SetWindowTextW(handle_, wide(shown));
}

LRESULT NativeWindow::original(UINT message, WPARAM w, LPARAM l) const noexcept {
    return handle_ != nullptr ? ::DefSubclassProc(handle_, message, w, l) : 0;
}

LRESULT CALLBACK NativeWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                         DWORD_PTR self) {
    const auto keep = reinterpret_cast<NativeWindow*>(self)->weak_from_this().lock();
    if (!keep)
        return ::DefSubclassProc(window, message, w, l);
    const Serving serving(keep->frame_);
    return keep->guardedServe(message, w, l);
}

/// The one place where an exception that nobody caught ends: it must not travel through the system.
LRESULT NativeWindow::guardedServe(UINT message, WPARAM w, LPARAM l) noexcept {
    try {
        return serve(message, w, l);
    } catch (const std::exception& stray) {
        ::OutputDebugStringA(stray.what());
    } catch (...) {
        ::OutputDebugStringA("an object that is no exception was thrown");
    }
    countStrayException();
    return 0;
}

LRESULT NativeWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCDESTROY) {
        const LRESULT result = original(message, w, l);
        gone();
        return result;
    }
    if (control_ == nullptr)
        return original(message, w, l);
    if (message == getControlNameMessage())
        return answerName(w, l);
    if (message == keyMessages().keyDown || message == keyMessages().sysKeyDown)
        return serveKey(message == keyMessages().keyDown ? WM_KEYDOWN : WM_SYSKEYDOWN, w, l);
    if (message == WM_SETFOCUS) {
        const LRESULT result = original(message, w, l);
        focused();
        return result;
    }
    if (message == WM_SETCURSOR && showsPointer(l))
        return TRUE;
    if ((message == WM_XBUTTONUP || message == WM_APPCOMMAND) && navigate(message, w, l))
        return TRUE;
    if (message == WM_MOUSEWHEEL && passWheelOn(w, l))
        return 0;
    if (message == WM_CONTEXTMENU && showContextMenu(l))
        return 0;
    const std::optional<LRESULT> reflected = reflect(message, w, l);
    return reflected ? *reflected : original(message, w, l);
}

/// What a child's window tells its parent is the child's to answer.
std::optional<LRESULT> NativeWindow::reflect(UINT message, WPARAM w, LPARAM l) {
    NativeWindow* child = nullptr;
    switch (message) {
        case WM_COMMAND:
            child = of(reinterpret_cast<HWND>(l));
            if (child == nullptr || child->control_ == nullptr)
                return std::nullopt;
            child->commanded(HIWORD(w));
            return 0;
        case WM_NOTIFY: {
            NMHDR& header = *reinterpret_cast<NMHDR*>(l);
            child = of(header.hwndFrom);
            return child != nullptr && child->control_ != nullptr ? child->notified(header) : std::nullopt;
        }
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            child = of(reinterpret_cast<HWND>(l));
            if (child == nullptr || child->control_ == nullptr)
                return std::nullopt;
            return reinterpret_cast<LRESULT>(child->colours(reinterpret_cast<HDC>(w)));
        default:
            return std::nullopt;
    }
}

LRESULT NativeWindow::answerName(WPARAM room, LPARAM buffer) const {
    const std::u16string& name = control_->name();
    const std::size_t units = name.size() + 1;
    if (buffer == 0)
        return static_cast<LRESULT>(units * sizeof(char16_t));
    if (room < units)
        return -1;
    std::memcpy(reinterpret_cast<void*>(buffer), name.c_str(), units * sizeof(char16_t));
    return static_cast<LRESULT>(units);
}

void NativeWindow::focused() {
    ui::Form* const form = control_ != nullptr ? control_->form() : nullptr;
    if (form != nullptr && form != control_ && form->isVisible())
        form->userFocused(control_);
}

bool NativeWindow::showsPointer(LPARAM hit) const {
    if (services().pointer != ui::Pointer::Wait || LOWORD(hit) != HTCLIENT)
        return false;
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    return true;
}

/// A drawing of the form hears of the wheel when the mouse is over it, whoever has the focus.
bool NativeWindow::passWheelOn(WPARAM w, LPARAM onScreen) const {
    const HWND under = ::WindowFromPoint({GET_X_LPARAM(onScreen), GET_Y_LPARAM(onScreen)});
    NativeWindow* const other = of(under);
    if (other == nullptr || other == this || other->frame_ != frame_ || !other->takesWheel())
        return false;
    ::SendMessageW(under, WM_MOUSEWHEEL, w, onScreen);
    return true;
}

POINT NativeWindow::contextPoint() const {
    RECT client{};
    ::GetClientRect(handle_, &client);
    return {client.left + 8, client.top + 8};
}

void NativeWindow::gone() noexcept {
    ::RemovePropW(handle_, ownerProperty());
    ::RemoveWindowSubclass(handle_, &NativeWindow::procedure, kSubclass);
    if (hasToolTip_)
        frame_->forgetToolTip(handle_);
    handle_ = nullptr;
    countGone(Counted::Window);
    self_.reset();
}

}  // namespace quorel::win32

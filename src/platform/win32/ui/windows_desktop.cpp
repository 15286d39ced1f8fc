#include "platform/win32/ui/windows_desktop.h"

#include <algorithm>

#include "platform/ui/form.h"
#include "platform/ui/shown_text.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/clipboard.h"
#include "platform/win32/ui/form_window.h"
#include "platform/win32/ui/keyboard_hook.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/peer_factory.h"
#include "platform/win32/ui/picture_decoder.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/tab_window.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostMessageUnits = 4000;
constexpr std::uint64_t kMoment = 100;  // milliseconds

[[nodiscard]] HWND messageOwner(const ui::Form* owner) noexcept {
    const HWND window = owner != nullptr && owner->isVisible() ? handleOf(*owner) : nullptr;
    return window != nullptr ? window : ::GetActiveWindow();
}

/// Lets the window under the mouse choose the pointer again.
void refreshPointer() noexcept {
    POINT mouse{};
    if (::GetCursorPos(&mouse) == FALSE)
        return;
    const HWND under = ::WindowFromPoint(mouse);
    if (NativeWindow::of(under) != nullptr)
        ::SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                       MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    else
        ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));
}

[[nodiscard]] ui::MessageAnswer answerOf(int button) noexcept {
    switch (button) {
        case IDCANCEL:
            return ui::MessageAnswer::Cancel;
        case IDYES:
            return ui::MessageAnswer::Yes;
        case IDNO:
            return ui::MessageAnswer::No;
        default:
            return ui::MessageAnswer::Ok;
    }
}

}  // namespace

WindowsDesktop::WindowsDesktop(HINSTANCE module) : services_(std::make_shared<Services>(module)) {}

WindowsDesktop::~WindowsDesktop() {
    const std::lock_guard lock(services_->mutex);
    for (const auto& [id, thread] : services_->threads)
        thread->close();
}

std::unique_ptr<ui::Peer> WindowsDesktop::makePeer(ui::Control& control) {
    return makeControlPeer(services_, control);
}

void WindowsDesktop::runModal(ui::Form& form) {
    const auto alive = form.weak_from_this().lock();
    if (auto* const window = dynamic_cast<FormWindow*>(windowOf(form)))
        window->runModal();
}

bool WindowsDesktop::takeCancelKey() {
    bool isCancelled = false;
    MSG message{};
    while (::PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) != FALSE)
        isCancelled =
            isCancelled || ((message.message == WM_KEYDOWN || message.message == keyMessages().keyDown) &&
                            message.wParam == VK_ESCAPE);
    return isCancelled;
}

void WindowsDesktop::post(std::function<void()> task) {
    services_->thread()->post(std::move(task));
}

ui::MessageAnswer WindowsDesktop::showMessage(const ui::Message& message, ui::Form* owner) {
    const auto services = services_;
    const NativeScope scope(services->controls);
    const HWND window = messageOwner(owner);
    std::u16string text = ui::shownText(message.text.substr(0, kMostMessageUnits));
    if (text.size() < message.text.size())
        text += u'\u2026';
    const std::u16string title = shownLine(message.title, kMostMessageUnits);
    const auto style = static_cast<UINT>(message.style) & (MB_TYPEMASK | MB_ICONMASK | MB_DEFMASK);
    const ModalLock lock(window);
    return answerOf(::MessageBoxW(window, wide(text), wide(title), style | MB_TASKMODAL | MB_SETFOREGROUND));
}

std::u16string WindowsDesktop::clipboardText() {
    return readClipboard();
}

void WindowsDesktop::setClipboardText(std::u16string_view text) {
    writeClipboard(text);
}

void WindowsDesktop::setPointer(ui::Pointer pointer) {
    services_->pointer = pointer;
    if (pointer == ui::Pointer::Wait)
        ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    else
        refreshPointer();
}

ui::Rect WindowsDesktop::workArea() {
    const NativeScope scope(services_->controls);
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const std::int32_t dpi = primaryDpi();
    const ui::Twips left = ui::toTwips(area.left, dpi);
    const ui::Twips top = ui::toTwips(area.top, dpi);
    return {left, top, ui::toTwips(area.right, dpi) - left, ui::toTwips(area.bottom, dpi) - top};
}

ui::Size WindowsDesktop::textSize(std::u16string_view line) {
    const std::uint64_t now = ::GetTickCount64();
    const std::lock_guard lock(measuring_);
    if (last_.line != line || now - last_.milliseconds > kMoment)
        last_ = {std::u16string(line), measured(line, {}), now};
    return last_.size;
}

ui::Size WindowsDesktop::textSize(std::u16string_view line, const ui::Font& font) {
    return measured(line, font);
}

/// To ask the system for its own font takes longer than to measure a line.
HFONT WindowsDesktop::measuringFont(std::int32_t dpi, const ui::Font& font) {
    const std::uint64_t now = ::GetTickCount64();
    const std::lock_guard lock(choosing_);
    if (fonts_.dpi != dpi || now - fonts_.milliseconds > kMoment)
        fonts_ = {{}, dpi, now};
    for (const auto& [known, handle] : fonts_.known)
        if (known == font)
            return handle;
    return fonts_.known.emplace_back(font, services_->tools.font(dpi, font)).second;
}

ui::Size WindowsDesktop::measured(std::u16string_view line, const ui::Font& wanted) {
    const NativeScope scope(services_->controls);
    const std::int32_t dpi = primaryDpi();
    const MemoryDc dc(::CreateCompatibleDC(nullptr));
    const SelectScope font(dc.get(), measuringFont(dpi, wanted));
    const std::u16string shown = ui::shownText(line);
    SIZE size{};
    ::GetTextExtentPoint32W(dc.get(), wide(shown), static_cast<int>(shown.size()), &size);
    return {ui::toTwips(size.cx, dpi), ui::toTwips(size.cy, dpi)};
}

/// A pixel more than measured, for an edge in twips that falls between pixels may take one away.
ui::Size WindowsDesktop::labelSize(std::u16string_view text, const ui::Font& font,
                                   std::optional<ui::Twips> width) {
    const NativeScope scope(services_->controls);
    const std::int32_t dpi = primaryDpi();
    const MemoryDc dc(::CreateCompatibleDC(nullptr));
    const SelectScope selected(dc.get(), services_->tools.font(dpi, font));
    const std::u16string shown = ui::shownText(text);
    RECT room{0, 0, width ? toPixels(*width, dpi) : 0, 0};
    ::DrawTextW(dc.get(), wide(shown), static_cast<int>(shown.size()), &room,
                DT_CALCRECT | DT_EXPANDTABS | (width ? DT_WORDBREAK : 0U));
    if (shown.empty()) {
        TEXTMETRICW metrics{};
        ::GetTextMetricsW(dc.get(), &metrics);
        room = {0, 0, -1, metrics.tmHeight};
    }
    return {ui::toTwips(room.right + 1, dpi), ui::toTwips(room.bottom, dpi)};
}

std::vector<ui::Picture> WindowsDesktop::loadPicture(std::u16string_view path) {
    return decodePicture(ui::readPictureFile(path), path);
}

ui::Borders WindowsDesktop::tabBorders() {
    const NativeScope scope(services_->controls);
    const std::int32_t dpi = primaryDpi();
    return measuredTabBorders(services_->module, services_->tools.font(dpi), dpi);
}

ui::Twips WindowsDesktop::scrollBarWidth() {
    const NativeScope scope(services_->controls);
    return ui::toTwips(::GetSystemMetrics(SM_CXVSCROLL), primaryDpi());
}

bool WindowsDesktop::isIdle() const {
    const std::lock_guard lock(services_->mutex);
    return std::none_of(services_->threads.begin(), services_->threads.end(),
                        [](const auto& entry) { return entry.second->hasTasks(); });
}

}  // namespace quorel::win32

// The conformance suite on native windows: input travels as posted messages through a plain message loop.

#include <array>
#include <deque>
#include <exception>
#include <stdexcept>
#include <utility>

#include "platform/ui/menu.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/system_headers.h"
#include "platform/win32/ui/windows_desktop.h"
#include "tests/conformance/backend.h"
#include "tests/platform/win32/ui/native_user.h"
#include "tests/platform/win32/ui/snapshot.h"

namespace quorel::conformance {

namespace {

namespace native = win32::testing;

/// A message-only window whose messages arrive in whatever loop runs.
class Courier {
  public:
    Courier()
        : window_(
              ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
        ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Courier::serve));
    }
    ~Courier() { ::DestroyWindow(window_); }
    Courier(const Courier&) = delete;
    Courier& operator=(const Courier&) = delete;

    void send(std::function<void()> errand) {
        errands_.push_back(std::move(errand));
        ::PostMessageW(window_, WM_APP, 0, 0);
    }
    void verify() {
        if (const std::exception_ptr failure = std::exchange(failure_, nullptr))
            std::rethrow_exception(failure);
    }

  private:
    static LRESULT CALLBACK serve(HWND window, UINT message, WPARAM w, LPARAM l) {
        auto* const self = reinterpret_cast<Courier*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message != WM_APP || self->errands_.empty())
            return ::DefWindowProcW(window, message, w, l);
        const std::function<void()> errand = std::move(self->errands_.front());
        self->errands_.pop_front();
        try {
            errand();
        } catch (...) {
            self->failure_ = std::current_exception();
        }
        return 0;
    }

    HWND window_;
    std::deque<std::function<void()>> errands_;
    std::exception_ptr failure_;
};

/// Sends the user's actions into the loop of the next modal form.
class WatchedDesktop final : public win32::WindowsDesktop {
  public:
    explicit WatchedDesktop(Courier& courier)
        : WindowsDesktop(::GetModuleHandleW(nullptr)), courier_(courier) {}

    void runModal(ui::Form& form) override {
        if (!scripts.empty()) {
            courier_.send([&form, script = std::move(scripts.front())] { script(form); });
            scripts.pop_front();
        }
        WindowsDesktop::runModal(form);
    }

    std::deque<std::function<void(ui::Form&)>> scripts;

  private:
    Courier& courier_;
};

class NativeBackend final : public Backend {
  public:
    [[nodiscard]] ui::Desktop& desktop() override { return desktop_; }
    void settle() override { native::pump(); }
    void duringModal(std::function<void(ui::Form&)> actions) override {
        desktop_.scripts.push_back(std::move(actions));
    }

    void click(ui::Control& control) override {
        const HWND window = native::windowFor(control);
        native::click(window, native::middleOf(window));
    }
    void doubleClick(ui::Control& control) override {
        const HWND window = native::windowFor(control);
        native::doubleClick(window, native::middleOf(window));
    }
    void enterText(ui::TextBox& box, std::u16string_view text) override;
    void chooseItem(ui::ComboBox& box, std::size_t index) override;
    void typeKeys(ui::Form& form, std::u16string_view text) override {
        native::type(native::windowFor(form), text);
    }
    void navigate(ui::Control& control, ui::Navigation where) override {
        const HWND window = native::windowFor(control);
        native::requireUsable(window);
        const WORD button = where == ui::Navigation::Back ? XBUTTON1 : XBUTTON2;
        ::PostMessageW(window, WM_XBUTTONDOWN, MAKEWPARAM(0, button), 0);
        ::PostMessageW(window, WM_XBUTTONUP, MAKEWPARAM(0, button), 0);
        native::pump();
    }
    void drop(ui::Form& form, const std::vector<std::u16string>& files) override {
        const HWND window = native::windowFor(form);
        native::requireUsable(window);
        native::drop(window, files);
    }
    void duringMenu(ui::Form& form, const ui::MenuItem& menu, std::u16string_view entry) override {
        courier_.send([this, &menu, window = native::windowFor(form), wanted = std::u16string(entry)] {
            chooseFromOpenMenu(menu, window, wanted);
        });
    }
    void press(ui::Form& form, ui::KeyChord chord) override { native::press(native::windowFor(form), chord); }
    void clickRow(ui::VirtualList& list, std::size_t row) override {
        const HWND window = native::windowFor(list);
        native::click(window, native::pointInRow(window, row));
    }
    void doubleClickRow(ui::VirtualList& list, std::size_t row) override {
        const HWND window = native::windowFor(list);
        native::doubleClick(window, native::pointInRow(window, row));
    }
    void clickBelowRows(ui::VirtualList& list) override;
    void clickCell(ui::VirtualList& list, ui::CellIndex cell) override {
        const HWND window = native::windowFor(list);
        native::click(window, native::pointInCell(window, cell));
    }
    void clickBox(ui::VirtualList& list, std::size_t row) override {
        const HWND window = native::windowFor(list);
        native::click(window, native::pointInBox(window, row));
    }
    bool seesChecked(ui::VirtualList& list, std::size_t row) override {
        return (::SendMessageW(native::windowFor(list), LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK) >> 12) ==
               2;
    }
    void pageDown(ui::VirtualList& list) override {
        ::PostMessageW(native::windowFor(list), WM_VSCROLL, SB_PAGEDOWN, 0);
        native::pump();
    }
    void resizeColumn(ui::VirtualList& list, std::size_t column, ui::Twips width) override {
        const HWND window = native::windowFor(list);
        ::SendMessageW(window, LVM_SETCOLUMNWIDTH, column, toPixels(width, win32::dpiOf(window)));
        native::pump();
    }
    void clickColumn(ui::VirtualList& list, std::size_t column) override;
    void typeToFind(ui::Control& control, std::u16string_view text) override;
    void clickItem(ui::Tree& tree, ui::TreeItemId item) override {
        native::click(native::windowFor(tree), native::pointInItem(tree, item));
    }
    void doubleClickItem(ui::Tree& tree, ui::TreeItemId item) override {
        native::doubleClick(native::windowFor(tree), native::pointInItem(tree, item));
    }
    void clickItemButton(ui::Tree& tree, ui::TreeItemId item) override {
        native::click(native::windowFor(tree), native::pointInButton(tree, item));
    }
    void chooseContextMenu(ui::Tree& tree, ui::TreeItemId item, std::u16string_view entry) override;
    void clickTab(ui::TabStrip& strip, std::size_t index) override {
        native::click(native::windowFor(strip), native::pointInTab(strip, index));
    }
    void scrollTo(ui::ScrollPanel& panel, ui::Twips top) override;
    void chooseMenu(ui::Form& form, std::u16string_view entry) override;
    void chooseContextMenu(ui::Control& control, std::u16string_view entry) override;
    void closeBox(ui::Form& form) override {
        const HWND window = native::windowFor(form);
        native::requireUsable(window);
        ::PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
        native::pump();
    }
    void resize(ui::Form& form, ui::Size clientSize) override;
    void dragSplitter(ui::Splitter& splitter, ui::Twips position) override;
    void moveMouse(ui::DrawingArea& area, ui::Point at) override {
        static constexpr std::array<WPARAM, 4> kHeld = {0, MK_LBUTTON, MK_MBUTTON, MK_RBUTTON};
        act(area, WM_MOUSEMOVE, kHeld[static_cast<std::size_t>(area.heldButton())], at);
    }
    void pressMouse(ui::DrawingArea& area, ui::Point at, ui::MouseButton button,
                    ui::Modifiers modifiers) override {
        static constexpr std::array<UINT, 4> kDown = {0, WM_LBUTTONDOWN, WM_MBUTTONDOWN, WM_RBUTTONDOWN};
        act(area, kDown[static_cast<std::size_t>(button)], keysOf(modifiers), at);
    }
    void releaseMouse(ui::DrawingArea& area, ui::Point at, ui::MouseButton button,
                      ui::Modifiers modifiers) override {
        static constexpr std::array<UINT, 4> kUp = {0, WM_LBUTTONUP, WM_MBUTTONUP, WM_RBUTTONUP};
        act(area, kUp[static_cast<std::size_t>(button)], keysOf(modifiers), at);
    }
    void doubleClickAt(ui::DrawingArea& area, ui::Point at) override {
        native::doubleClick(native::windowFor(area), pixelOf(area, at));
    }
    void turnWheel(ui::DrawingArea& area, ui::Point at, std::int32_t wheel, ui::Modifiers modifiers) override;
    void leaveMouse(ui::DrawingArea& area) override { act(area, WM_MOUSELEAVE, 0, {}); }
    void loseMouse(ui::DrawingArea&) override {
        ::ReleaseCapture();
        native::pump();
    }
    void repaint(ui::DrawingArea& area) override {
        native::pump();
        if (const HWND window = win32::handleOf(area))
            ::UpdateWindow(window);
        native::pump();
    }

    [[nodiscard]] bool seesForm(const ui::Form& form) override { return sees(form); }
    [[nodiscard]] bool seesControl(const ui::Control& control) override { return sees(control); }
    [[nodiscard]] bool seesOnTop(const ui::Control& control) override {
        const HWND window = native::windowFor(control);
        const HWND form = native::windowFor(*const_cast<ui::Control&>(control).form());
        POINT middle = native::middleOf(window);
        ::MapWindowPoints(window, form, &middle, 1);
        return sees(control) && ::ChildWindowFromPointEx(form, middle, CWP_SKIPINVISIBLE) == window;
    }
    [[nodiscard]] std::u16string seenToolTip(ui::VirtualList& list, ui::CellIndex cell) override {
        const HWND window = native::windowFor(list);
        const POINT at = native::pointInCell(window, cell);
        ::PostMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
        native::pump();
        return native::toolTipOf(window);
    }
    [[nodiscard]] std::u16string seenText(const ui::Control& control) override {
        return control.peer() != nullptr ? native::textOf(native::windowFor(control)) : std::u16string();
    }
    [[nodiscard]] ui::CheckValue seenCheck(const ui::CheckBox& box) override {
        return static_cast<ui::CheckValue>(::SendMessageW(native::windowFor(box), BM_GETCHECK, 0, 0));
    }
    [[nodiscard]] int seenProgress(const ui::ProgressBar& bar) override {
        const HWND window = native::windowFor(bar);
        const auto most = static_cast<int>(::SendMessageW(window, PBM_GETRANGE, FALSE, 0));
        return ::MulDiv(static_cast<int>(::SendMessageW(window, PBM_GETPOS, 0, 0)), 100, most);
    }
    [[nodiscard]] std::u16string seenCell(ui::VirtualList& list, std::size_t row,
                                          std::size_t column) override {
        return native::cellOf(native::windowFor(list), row, column);
    }
    [[nodiscard]] std::size_t seenRowCount(ui::VirtualList& list) override {
        return list.peer() == nullptr ? 0
                                      : static_cast<std::size_t>(
                                            ::SendMessageW(native::windowFor(list), LVM_GETITEMCOUNT, 0, 0));
    }
    [[nodiscard]] std::u16string seenPicture(ui::VirtualList& list, std::size_t row) override;
    [[nodiscard]] std::vector<std::u16string> seenItems(const ui::Tree& tree) override {
        return native::itemsOf(tree);
    }
    void look(ui::Tree& tree) override {
        ::RedrawWindow(native::windowFor(tree), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        native::pump();
    }
    [[nodiscard]] bool seesItem(const ui::Tree& tree, ui::TreeItemId item) override {
        return native::isItemInView(tree, item);
    }
    [[nodiscard]] std::vector<std::u16string> seenTabs(const ui::TabStrip& strip) override {
        return native::tabsOf(native::windowFor(strip));
    }
    [[nodiscard]] ui::Twips seenTop(const ui::Control& control) override;
    [[nodiscard]] ui::Twips seenPictureWidth(const ui::PictureBox& box) override;
    [[nodiscard]] int seenPoints(const ui::Label& label) override;
    [[nodiscard]] std::size_t peerCount() override { return native::livePeers(); }
    void verify() override {
        courier_.verify();
        if (!desktop_.scripts.empty())
            throw std::runtime_error("a modal show that was expected never came");
    }

  private:
    [[nodiscard]] static POINT pixelOf(const ui::DrawingArea& area, ui::Point at) {
        const std::int32_t dpi = win32::dpiOf(native::windowFor(area));
        return {toPixels(at.x, dpi), toPixels(at.y, dpi)};
    }
    [[nodiscard]] static WPARAM keysOf(ui::Modifiers modifiers) {
        return (has(modifiers, ui::Modifiers::Shift) ? MK_SHIFT : 0U) |
               (has(modifiers, ui::Modifiers::Control) ? MK_CONTROL : 0U);
    }
    static void act(const ui::DrawingArea& area, UINT message, WPARAM keys, ui::Point at);
    [[nodiscard]] static bool sees(const ui::Control& control) {
        return control.peer() != nullptr && ::IsWindowVisible(native::windowFor(control)) != FALSE;
    }
    static void chooseFromOpenMenu(const ui::MenuItem& menu, HWND form, const std::u16string& entry);

    Courier courier_;
    WatchedDesktop desktop_{courier_};
    ULONGLONG typedAt_ = 0;
};

/// Pasted, as one edit.
void NativeBackend::enterText(ui::TextBox& box, std::u16string_view text) {
    const HWND window = native::windowFor(box);
    native::requireUsable(window);
    if ((::GetWindowLongPtrW(window, GWL_STYLE) & ES_READONLY) != 0)
        throw std::runtime_error("the box is read-only");
    ui::Desktop& desktop = *static_cast<ui::Desktop*>(&desktop_);
    desktop.setClipboardText(text);
    if (::GetFocus() != window)
        native::click(window, native::middleOf(window));
    if (::IsWindow(window) == FALSE)
        return;
    ::SendMessageW(window, EM_SETSEL, 0, -1);
    ::PostMessageW(window, WM_PASTE, 0, 0);
    native::pump();
}

/// By the keyboard: opens the list, goes down from its top, confirms.
void NativeBackend::chooseItem(ui::ComboBox& box, std::size_t index) {
    const HWND window = native::windowFor(box);
    native::requireUsable(window);
    if (static_cast<LRESULT>(index) >= ::SendMessageW(window, CB_GETCOUNT, 0, 0))
        throw std::runtime_error("the box has no such item");
    const HWND form = native::windowFor(*box.form());
    ::SetFocus(window);
    native::press(form, {ui::Key::F4});
    if (::SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) == FALSE)
        throw std::runtime_error("the list did not open");
    native::press(form, {ui::Key::PageUp});
    for (std::size_t i = 0; i < index; ++i)
        native::press(form, {ui::Key::Down});
    native::press(form, {ui::Key::Enter});
}

void NativeBackend::clickBelowRows(ui::VirtualList& list) {
    const HWND window = native::windowFor(list);
    RECT client{};
    ::GetClientRect(window, &client);
    native::click(window, {10, client.bottom - 5});
}

void NativeBackend::clickColumn(ui::VirtualList& list, std::size_t column) {
    const HWND header = reinterpret_cast<HWND>(::SendMessageW(native::windowFor(list), LVM_GETHEADER, 0, 0));
    RECT place{};
    ::SendMessageW(header, HDM_GETITEMRECT, column, reinterpret_cast<LPARAM>(&place));
    native::click(header, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void NativeBackend::chooseContextMenu(ui::Tree& tree, ui::TreeItemId item, std::u16string_view entry) {
    const HWND window = native::windowFor(tree);
    native::requireUsable(window);
    const HWND form = native::windowFor(*tree.form());
    const POINT at = native::pointInItem(tree, item);
    ::PostMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(at.x, at.y));
    ::PostMessageW(window, WM_RBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    courier_.send([this, &tree, form, wanted = std::u16string(entry)] {
        courier_.send([&tree, form, wanted] { chooseFromOpenMenu(tree.contextMenu(), form, wanted); });
    });
    native::pump();
}

void NativeBackend::scrollTo(ui::ScrollPanel& panel, ui::Twips top) {
    const HWND window = native::windowFor(panel);
    native::requireUsable(window);
    if ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_VSCROLL) == 0)
        throw std::runtime_error("the panel has no scroll bar");
    const int steps = top.value / 300;
    ::SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
    for (int step = 0; step < steps; ++step)
        ::PostMessageW(window, WM_VSCROLL, SB_LINEDOWN, 0);
    native::pump();
}

ui::Twips NativeBackend::seenTop(const ui::Control& control) {
    const HWND window = native::windowFor(control);
    RECT outer{};
    ::GetWindowRect(window, &outer);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&outer), 2);
    return ui::toTwips(outer.top, win32::dpiOf(window));
}

/// The dots in the middle line that are not as those at its edge.
ui::Twips NativeBackend::seenPictureWidth(const ui::PictureBox& box) {
    const HWND window = native::windowFor(box);
    RECT client{};
    ::GetClientRect(window, &client);
    const native::Snapshot shot(window);
    const LONG middle = client.bottom / 2;
    const ui::Colour ground = shot.at(0, middle);
    LONG dots = 0;
    for (LONG x = 0; x < client.right; ++x)
        dots += shot.at(x, middle) == ground ? 0 : 1;
    return ui::toTwips(dots, win32::dpiOf(window));
}

int NativeBackend::seenPoints(const ui::Label& label) {
    const HWND window = native::windowFor(label);
    LOGFONTW font{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)), sizeof(font), &font);
    return ::MulDiv(-font.lfHeight, 72, win32::dpiOf(window));
}

std::u16string NativeBackend::seenPicture(ui::VirtualList& list, std::size_t row) {
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = static_cast<int>(row);
    ::SendMessageW(native::windowFor(list), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    if (item.iImage < 0)
        return {};
    const std::u16string key = list.source()->rowPicture(row);
    return list.images()->placeOf(key) == static_cast<std::size_t>(item.iImage) ? key : u"another";
}

/// A list takes keys that come soon after each other for one text.
void NativeBackend::typeToFind(ui::Control& control, std::u16string_view text) {
    const ULONGLONG pause = 2ULL * ::GetDoubleClickTime() + 100;
    if (const ULONGLONG since = ::GetTickCount64() - typedAt_; since < pause)
        ::Sleep(static_cast<DWORD>(pause - since));
    const HWND form = native::windowFor(*control.form());
    native::type(form, text);
    typedAt_ = ::GetTickCount64();
}

/// A menu bar that came or went has changed the window's size.
void NativeBackend::chooseMenu(ui::Form& form, std::u16string_view entry) {
    native::pumpPatiently();
    const HWND window = native::windowFor(form);
    native::requireUsable(window);
    const ui::MenuItem* const item = form.menuBar().find(entry);
    const UINT command =
        item != nullptr ? native::findCommand(::GetMenu(window), native::labelFor(*item)) : 0;
    if (command == 0)
        throw std::runtime_error("the menu has no such usable entry");
    ::PostMessageW(window, WM_COMMAND, command, 0);
    native::pump();
}

void NativeBackend::chooseContextMenu(ui::Control& control, std::u16string_view entry) {
    const HWND window = native::windowFor(control);
    native::requireUsable(window);
    const HWND form = native::windowFor(*control.form());
    native::click(window, native::middleOf(window));
    ::PostMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    courier_.send([this, &control, form, wanted = std::u16string(entry)] {
        chooseFromOpenMenu(control.contextMenu(), form, wanted);
    });
    native::pump();
}

void NativeBackend::chooseFromOpenMenu(const ui::MenuItem& menu, HWND form, const std::u16string& entry) {
    if (!native::isMenuOpen())
        return;
    const auto key = [form](WPARAM code) {
        ::PostMessageW(form, WM_KEYDOWN, code, 1);
        ::PostMessageW(form, WM_KEYUP, code, 1 | 3LL << 30);
    };
    bool found = false;
    for (const auto& item : menu.items()) {
        if (!item->isVisible() || item->isSeparator())
            continue;
        key(VK_DOWN);
        found = item->name() == entry && item->isEnabled();
        if (found)
            break;
    }
    key(found ? VK_RETURN : VK_ESCAPE);
    if (!found && !entry.empty())
        throw std::runtime_error("the context menu has no such usable entry");
}

void NativeBackend::resize(ui::Form& form, ui::Size clientSize) {
    const HWND window = native::windowFor(form);
    native::requireUsable(window);
    const std::int32_t dpi = win32::dpiOf(window);
    RECT client{}, outer{};
    ::GetClientRect(window, &client);
    ::GetWindowRect(window, &outer);
    ::SetWindowPos(window, nullptr, 0, 0,
                   outer.right - outer.left + toPixels(clientSize.width, dpi) - client.right,
                   outer.bottom - outer.top + toPixels(clientSize.height, dpi) - client.bottom,
                   SWP_NOMOVE | SWP_NOZORDER);
    native::pump();
}

void NativeBackend::act(const ui::DrawingArea& area, UINT message, WPARAM keys, ui::Point at) {
    const HWND window = native::windowFor(area);
    native::requireUsable(window);
    const POINT pixel = pixelOf(area, at);
    ::PostMessageW(window, message, keys, MAKELPARAM(pixel.x, pixel.y));
    native::pump();
}

/// It comes to the window that has the focus, as from the system.
void NativeBackend::turnWheel(ui::DrawingArea& area, ui::Point at, std::int32_t wheel,
                              ui::Modifiers modifiers) {
    POINT pixel = pixelOf(area, at);
    ::ClientToScreen(native::windowFor(area), &pixel);
    ::PostMessageW(::GetFocus(), WM_MOUSEWHEEL,
                   MAKEWPARAM(keysOf(modifiers), static_cast<WORD>(static_cast<std::int16_t>(wheel))),
                   MAKELPARAM(pixel.x, pixel.y));
    native::pump();
}

void NativeBackend::dragSplitter(ui::Splitter& splitter, ui::Twips position) {
    const HWND window = native::windowFor(splitter);
    native::requireUsable(window);
    const bool vertical = splitter.orientation() == ui::Orientation::Vertical;
    const ui::Twips from = vertical ? splitter.bounds().left : splitter.bounds().top;
    const std::int32_t dpi = win32::dpiOf(window);
    const std::int32_t way = toPixels(position, dpi) - toPixels(from, dpi);
    const POINT grip = native::middleOf(window);
    const POINT there{grip.x + (vertical ? way : 0), grip.y + (vertical ? 0 : way)};
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(grip.x, grip.y));
    ::PostMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(there.x, there.y));
    ::PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(there.x, there.y));
    native::pump();
}

}  // namespace

std::unique_ptr<Backend> makeBackend() {
    return std::make_unique<NativeBackend>();
}

}  // namespace quorel::conformance

#include "tests/platform/win32/ui/native_user.h"

#include <shlobj.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "platform/win32/text.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/menus.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32::testing {

namespace {

constexpr int kLongCell = 1024;

/// The modifier keys are down while it lives, for this thread.
class HeldModifiers {
  public:
    explicit HeldModifiers(ui::Modifiers modifiers) {
        ::GetKeyboardState(before_.data());
        std::array<BYTE, 256> now = before_;
        now[VK_SHIFT] = state(has(modifiers, ui::Modifiers::Shift));
        now[VK_CONTROL] = state(has(modifiers, ui::Modifiers::Control));
        now[VK_MENU] = state(has(modifiers, ui::Modifiers::Alt));
        ::SetKeyboardState(now.data());
    }
    ~HeldModifiers() { ::SetKeyboardState(before_.data()); }
    HeldModifiers(const HeldModifiers&) = delete;
    HeldModifiers& operator=(const HeldModifiers&) = delete;

  private:
    [[nodiscard]] static BYTE state(bool down) { return down ? 0x80 : 0; }
    std::array<BYTE, 256> before_{};
};

void activate(HWND form) {
    if (::GetActiveWindow() != form)
        ::SetActiveWindow(form);
    pump();
}

BOOL CALLBACK countPeer(HWND window, LPARAM count) {
    const NativeWindow* const ours = NativeWindow::of(window);
    if (ours != nullptr && ours->control() != nullptr)
        ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

BOOL CALLBACK countPeers(HWND window, LPARAM count) {
    countPeer(window, count);
    ::EnumChildWindows(window, countPeer, count);
    return TRUE;
}

BOOL CALLBACK findBoxText(HWND window, LPARAM found) {
    if (::GetDlgCtrlID(window) == 0xFFFF || ::GetDlgCtrlID(window) == -1 ||
        textOf(window).find(u"Error No") == 0)
        reinterpret_cast<FoundBox*>(found)->text += textOf(window);
    return TRUE;
}

}  // namespace

int pump() {
    int handled = 0;
    MSG message{};
    for (; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE; ++handled) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return handled;
}

void pumpPatiently() {
    constexpr ULONGLONG kQuiet = 200;
    for (ULONGLONG since = ::GetTickCount64(); ::GetTickCount64() - since < kQuiet;) {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        if (pump() > 0)
            since = ::GetTickCount64();
    }
}

HWND windowFor(const ui::Control& control) {
    const HWND window = handleOf(control);
    if (window == nullptr)
        throw std::runtime_error("the control has no window");
    return window;
}

void requireUsable(HWND window) {
    if (::IsWindowVisible(window) == FALSE)
        throw std::runtime_error("the window is hidden");
    for (; window != nullptr; window = ::GetAncestor(window, GA_PARENT))
        if (::IsWindowEnabled(window) == FALSE)
            throw std::runtime_error("the window is disabled");
}

void drop(HWND window, const std::vector<std::u16string>& files) {
    if ((::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_ACCEPTFILES) == 0)
        throw std::runtime_error("the window takes no files");
    std::u16string names;
    for (const std::u16string& file : files)
        names.append(file).push_back(u'\0');
    names.push_back(u'\0');
    const HGLOBAL memory = ::GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(char16_t));
    auto* const header = static_cast<DROPFILES*>(::GlobalLock(memory));
    header->pFiles = sizeof(DROPFILES);
    header->fWide = TRUE;
    std::memcpy(header + 1, names.data(), names.size() * sizeof(char16_t));
    ::GlobalUnlock(memory);
    ::PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    pump();
}

POINT middleOf(HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    return {client.right / 2, client.bottom / 2};
}

void click(HWND window, POINT at) {
    requireUsable(window);
    activate(::GetAncestor(window, GA_ROOT));
    const LPARAM where = MAKELPARAM(at.x, at.y);
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, where);
    ::PostMessageW(window, WM_LBUTTONUP, 0, where);
    pump();
}

void doubleClick(HWND window, POINT at) {
    requireUsable(window);
    activate(::GetAncestor(window, GA_ROOT));
    const LPARAM where = MAKELPARAM(at.x, at.y);
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, where);
    ::PostMessageW(window, WM_LBUTTONUP, 0, where);
    ::PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, where);
    ::PostMessageW(window, WM_LBUTTONUP, 0, where);
    pump();
}

void press(HWND form, ui::KeyChord chord) {
    requireUsable(form);
    activate(form);
    const HWND focus = ::GetFocus();
    if (focus == nullptr)
        throw std::runtime_error("no window has the focus");
    const bool alt = has(chord.modifiers, ui::Modifiers::Alt);
    const bool system = alt || chord.key == ui::Key::F10;
    const auto key = static_cast<WPARAM>(chord.key);
    const UINT scan = ::MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC);
    const LPARAM context = alt ? 1L << 29 : 0;
    const LPARAM down = 1 | static_cast<LPARAM>(scan << 16) | context;
    const HeldModifiers held(chord.modifiers);
    ::PostMessageW(focus, system ? WM_SYSKEYDOWN : WM_KEYDOWN, key, down);
    pump();
    if (::IsWindow(focus) != FALSE && ::GetFocus() != nullptr)
        ::PostMessageW(::GetFocus(), system ? WM_SYSKEYUP : WM_KEYUP, key, down | 3LL << 30);
    pump();
}

void type(HWND form, std::u16string_view text) {
    for (const char16_t unit : text) {
        const SHORT key = ::VkKeyScanW(static_cast<wchar_t>(unit));
        press(form, {static_cast<ui::Key>(LOBYTE(key)),
                     (HIBYTE(key) & 1) != 0 ? ui::Modifiers::Shift : ui::Modifiers::None});
    }
}

POINT pointInRow(HWND list, std::size_t row) {
    const LRESULT rows = ::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
    if (static_cast<LRESULT>(row) >= rows)
        throw std::runtime_error("there is no such row");
    ::SendMessageW(list, LVM_ENSUREVISIBLE, row, FALSE);
    RECT place{};
    place.left = LVIR_LABEL;
    ::SendMessageW(list, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place));
    return {place.left + 10, (place.top + place.bottom) / 2};
}

POINT pointInBox(HWND list, std::size_t row) {
    POINT at = pointInRow(list, row);
    LVHITTESTINFO hit{};
    for (hit.pt = {0, at.y}; hit.pt.x < at.x; ++hit.pt.x)
        if (::SendMessageW(list, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) >= 0 &&
            (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON)
            return {hit.pt.x + 4, at.y};
    throw std::runtime_error("the row has no box");
}

POINT pointInCell(HWND list, ui::CellIndex cell) {
    POINT at = pointInRow(list, cell.row);
    const HWND header = reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0));
    RECT title{};
    ::SendMessageW(header, HDM_GETITEMRECT, cell.column, reinterpret_cast<LPARAM>(&title));
    ::MapWindowPoints(header, list, reinterpret_cast<POINT*>(&title), 2);
    at.x = title.left + 12;
    return at;
}

std::u16string toolTipOf(HWND window) {
    struct Search {
        HWND form, window;
        std::u16string text;
    } search{::GetAncestor(window, GA_ROOT), window, {}};
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND tip, LPARAM wanted) -> BOOL {
            auto& found = *reinterpret_cast<Search*>(wanted);
            std::array<wchar_t, 32> name{};
            ::GetClassNameW(tip, name.data(), static_cast<int>(name.size()));
            if (::GetWindow(tip, GW_OWNER) != found.form || narrowView(name.data()) != u"tooltips_class32")
                return TRUE;
            std::array<wchar_t, 1024> text{};
            TTTOOLINFOW tool{};
            tool.cbSize = sizeof(tool);
            tool.hwnd = found.form;
            tool.uId = reinterpret_cast<UINT_PTR>(found.window);
            tool.lpszText = text.data();
            ::SendMessageW(tip, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
            found.text = narrowView(text.data());
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.text;
}

std::u16string textOf(HWND window) {
    std::u16string text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, u'\0');
    text.resize(
        static_cast<std::size_t>(::GetWindowTextW(window, wideBuffer(text), static_cast<int>(text.size()))));
    return text;
}

std::u16string cellOf(HWND list, std::size_t row, std::size_t column) {
    std::u16string text(kLongCell, u'\0');
    LVITEMW item{};
    item.iSubItem = static_cast<int>(column);
    item.pszText = wideBuffer(text);
    item.cchTextMax = kLongCell;
    text.resize(static_cast<std::size_t>(
        ::SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item))));
    return text;
}

FoundBox openBox(const wchar_t* title) {
    FoundBox found{::FindWindowW(L"#32770", title), {}};
    ::EnumChildWindows(found.window, findBoxText, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::u16string labelFor(const ui::MenuItem& entry) {
    const std::u16string shortcut = shortcutText(entry.shortcut());
    return shownLine(entry.caption(), 200) + (shortcut.empty() ? u"" : u"\t" + shortcut);
}

UINT findCommand(HMENU menu, std::u16string_view label) {
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        if ((::GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) != 0)
            continue;
        std::array<wchar_t, 300> text{};
        ::GetMenuStringW(menu, static_cast<UINT>(i), text.data(), static_cast<int>(text.size()),
                         MF_BYPOSITION);
        const HMENU inner = ::GetSubMenu(menu, i);
        if (inner == nullptr && narrowView(text.data()) == label)
            return ::GetMenuItemID(menu, i);
        if (const UINT found = inner != nullptr ? findCommand(inner, label) : 0)
            return found;
    }
    return 0;
}

bool isMenuOpen() {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) != FALSE &&
           (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0;
}

std::size_t livePeers() {
    std::size_t count = 0;
    ::EnumThreadWindows(::GetCurrentThreadId(), countPeers, reinterpret_cast<LPARAM>(&count));
    return count;
}

}  // namespace quorel::win32::testing


#include "platform/ui/shown_text.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/drawing_tools.h"
#include "platform/win32/ui/input_windows.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {
constexpr WPARAM kNoTextLimit = 0x7FFFFFFE;
constexpr LONG kAroundLine = 2;  // pixels that the system leaves above and below the line together
}  // namespace

NativeWindow::Description TextWindow::describe() {
    DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | ES_LEFT;
    style |=
        box().isMultiLine() ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL : ES_AUTOHSCROLL;
    return {u"EDIT", style, WS_EX_CLIENTEDGE};
}

void TextWindow::opened() {
    send(EM_SETLIMITTEXT, kNoTextLimit);
}

void TextWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Style)) {
        send(EM_SETREADONLY, box().isReadOnly());
        if (!box().isMultiLine()) {
            const std::u16string cue = ui::shownText(box().cueText());
            send(EM_SETCUEBANNER, FALSE, reinterpret_cast<LPARAM>(wide(cue)));
        }
    }
    if (has(changes, ui::Change::Enabled | ui::Change::Style | ui::Change::Colours) && !box().isMultiLine())
        ::RedrawWindow(handle(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
    if (has(changes, ui::Change::Selection) && box().isAllSelected())
        send(EM_SETSEL, 0, -1);
}

/// Leaves the caret alone when the window shows the text already.
void TextWindow::mirrorText() {
    const std::u16string wanted = ui::shownText(box().text());
    if (wanted == nativeText())
        return;
    settingText_ = true;
    setNativeText(wanted);
    settingText_ = false;
    if (box().isAllSelected())
        send(EM_SETSEL, 0, -1);
}

void TextWindow::commanded(WORD code) {
    if (code == EN_CHANGE && !settingText_)
        box().userTyped(editedText(box().text(), nativeText()));
}

/// Comes by key or by program: as in dialogs, what one types replaces a box of one line.
void TextWindow::takeFocus() {
    const bool selects = control() != nullptr && !box().isMultiLine() && ::GetFocus() != handle();
    NativeWindow::takeFocus();
    if (selects && ::GetFocus() == handle() && handle() != nullptr)
        send(EM_SETSEL, 0, -1);
}

LRESULT TextWindow::serve(UINT message, WPARAM w, LPARAM l) {
    constexpr WPARAM kSelectAll = 1;  // Ctrl+A as a character
    if (message == WM_CHAR && w == kSelectAll && control() != nullptr) {
        send(EM_SETSEL, 0, -1);
        return 0;
    }
    if (control() != nullptr && !box().isMultiLine() &&
        (message == WM_NCCALCSIZE || message == WM_NCPAINT || message == WM_NCHITTEST ||
         message == WM_SETFONT))
        return serveLine(message, w, l);
    if (message == WM_MOUSEWHEEL && control() != nullptr && !box().isMultiLine())
        return ::DefWindowProcW(handle(), message, w, l);  // for what the box stands in
    return NativeWindow::serve(message, w, l);
}

LRESULT TextWindow::serveLine(UINT message, WPARAM w, LPARAM l) {
    const LRESULT result = NativeWindow::serve(message, w, l);
    if (handle() == nullptr || control() == nullptr)
        return result;
    switch (message) {
        case WM_NCCALCSIZE:
            // Either form of it begins with the client area.
            centreLine(*reinterpret_cast<RECT*>(l));
            return result;
        case WM_NCPAINT:
            paintAroundLine();
            return result;
        case WM_NCHITTEST:
            return result == HTNOWHERE || result == HTBORDER ? HTCLIENT : result;
        default:
            ::SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
            return result;
    }
}

void TextWindow::centreLine(RECT& client) const {
    const LONG needed = lineHeight(font()) + kAroundLine;
    const LONG spare = client.bottom - client.top - needed;
    if (spare <= 0)
        return;
    client.top += spare / 2;
    client.bottom = client.top + needed;
}

void TextWindow::paintAroundLine() {
    RECT outer{}, line{};
    ::GetWindowRect(handle(), &outer);
    ::GetClientRect(handle(), &line);
    ::MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&line), 2);
    ::OffsetRect(&line, -outer.left, -outer.top);
    const LONG edge = line.left;
    const RECT above{edge, edge, line.right, line.top};
    const RECT below{edge, line.bottom, line.right, outer.bottom - outer.top - edge};
    const HDC dc = ::GetWindowDC(handle());
    const HBRUSH ground = colours(dc);
    for (const RECT& strip : {above, below})
        ::FillRect(dc, &strip, ground);
    ::ReleaseDC(handle(), dc);
}

/// A box of one line beeps at these.
bool TextWindow::dropsKey(ui::KeyChord chord) const {
    if (chord.key == ui::Key::Tab)
        return chord.modifiers != ui::Modifiers::Control || !box().isMultiLine();
    return !box().isMultiLine() && (chord.key == ui::Key::Enter || chord.key == ui::Key::Escape);
}

HBRUSH TextWindow::colours(HDC dc) {
    const bool plain = ::IsWindowEnabled(handle()) != FALSE && !box().isReadOnly();
    if (box().background() || !plain)
        return NativeWindow::colours(dc);
    ::SetBkColor(dc, ::GetSysColor(COLOR_WINDOW));
    ::SetTextColor(dc, ::GetSysColor(COLOR_WINDOWTEXT));
    return ::GetSysColorBrush(COLOR_WINDOW);
}

}  // namespace quorel::win32

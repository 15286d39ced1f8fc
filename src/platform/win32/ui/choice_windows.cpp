#include "platform/win32/ui/choice_windows.h"

#include <cmath>
#include <utility>

#include "platform/ui/shown_text.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr LONG kDroppedRows = 12;
constexpr std::size_t kMostItemUnits = 1000;
constexpr int kProgressSteps = 10'000;

}  // namespace

NativeWindow::Description ComboWindow::describe() {
    const DWORD style = box().isEditable() ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST;
    return {u"COMBOBOX", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | CBS_HASSTRINGS | style};
}

/// The system counts the open list to the height.
ui::PixelRect ComboWindow::place() const {
    ui::PixelRect whole = NativeWindow::place();
    whole.bottom += kDroppedRows * lineHeight(frame()->font());
    return whole;
}

void ComboWindow::mirror(ui::Change changes) {
    const bool before = std::exchange(mirroring_, true);
    if (has(changes, ui::Change::Items))
        mirrorItems();
    if (has(changes, ui::Change::Selection))
        mirrorSelection();
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Bounds))
        matchHeight();
    mirroring_ = before;
}

void ComboWindow::mirrorItems() {
    send(CB_RESETCONTENT);
    for (const std::u16string& item : box().items())
        send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(shownLine(item, kMostItemUnits))));
}

void ComboWindow::mirrorSelection() {
    const auto index = box().listIndex();
    send(CB_SETCURSEL, index ? *index : static_cast<WPARAM>(-1));
}

void ComboWindow::mirrorText() {
    const std::u16string wanted = ui::shownText(box().text());
    if (box().isEditable() && wanted != nativeText())
        setNativeText(wanted);
}

/// The closed box is as high as its line and a frame that only the system knows, and that it may change with
/// the line.
void ComboWindow::matchHeight() {
    constexpr int kAttempts = 3;
    const ui::PixelRect wanted = NativeWindow::place();
    auto line = static_cast<LONG>(send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        RECT outer{};
        ::GetWindowRect(handle(), &outer);
        const LONG missing = (wanted.bottom - wanted.top) - (outer.bottom - outer.top);
        if (missing == 0 || line + missing <= 0)
            return;
        line += missing;
        send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), line);
    }
}

void ComboWindow::rescaled() {
    NativeWindow::rescaled();
    if (control() != nullptr)
        matchHeight();
}

bool ComboWindow::isDropped() const noexcept {
    return ::SendMessageW(handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void ComboWindow::commanded(WORD code) {
    switch (code) {
        case CBN_SETFOCUS:
            focused();
            return;
        case CBN_DROPDOWN:
        case CBN_SELENDOK:
            cancelled_ = false;
            return;
        case CBN_SELENDCANCEL:
            cancelled_ = true;
            return;
        case CBN_CLOSEUP:
        case CBN_SELCHANGE:
            if (code == CBN_CLOSEUP || !isDropped())
                reportChoice();
            return;
        case CBN_EDITCHANGE:
            reportText();
            return;
        default:
            return;
    }
}

void ComboWindow::reportChoice() {
    if (mirroring_)
        return;
    if (std::exchange(cancelled_, false)) {
        apply(ui::Change::Selection | ui::Change::Text);
        return;
    }
    const LRESULT chosen = send(CB_GETCURSEL);
    if (chosen >= 0 && control() != nullptr)
        box().userChose(static_cast<std::size_t>(chosen));
}

void ComboWindow::reportText() {
    if (!mirroring_)
        box().userTyped(editedText(box().text(), nativeText()));
}

void ComboWindow::takeFocus() {
    const bool selects = control() != nullptr && box().isEditable();
    NativeWindow::takeFocus();
    if (selects && handle() != nullptr)
        send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

/// An open list is closed by these, whatever the form does with them otherwise.
bool ComboWindow::claimsKey(ui::KeyChord chord) const {
    return (chord.key == ui::Key::Enter || chord.key == ui::Key::Escape) && isDropped();
}

bool ComboWindow::dropsKey(ui::KeyChord chord) const {
    return chord.key == ui::Key::Tab || chord.key == ui::Key::Enter || chord.key == ui::Key::Escape;
}

NativeWindow::Description ProgressWindow::describe() {
    return {u"msctls_progress32", WS_CHILD | WS_CLIPSIBLINGS | PBS_SMOOTH};
}

void ProgressWindow::opened() {
    send(PBM_SETRANGE32, 0, kProgressSteps);
}

void ProgressWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (!has(changes, ui::Change::Items))
        return;
    if (!std::exchange(stale_, true))
        ::InvalidateRect(handle(), nullptr, FALSE);
    const ULONGLONG now = ::GetTickCount64();
    if (now - painted_ < kPaintPause && bar().filled() < 1)
        return;
    ::UpdateWindow(handle());
    painted_ = ::GetTickCount64();
}

/// The system's bar paints itself whenever it is moved, so it is moved when it is painted or asked.
LRESULT ProgressWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if ((message == WM_PAINT || message == PBM_GETPOS) && control() != nullptr &&
        std::exchange(stale_, false))
        send(PBM_SETPOS, static_cast<WPARAM>(std::lround(bar().filled() * kProgressSteps)));
    return NativeWindow::serve(message, w, l);
}

}  // namespace quorel::win32

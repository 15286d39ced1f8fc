#include "platform/win32/ui/tab_window.h"

#include <algorithm>

#include "platform/ui/access_key.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostCaptionUnits = 250;

}  // namespace

NativeWindow::Description TabWindow::describe() {
    return {u"SysTabControl32", WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_TABSTOP,
            WS_EX_CONTROLPARENT};
}

void TabWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Items))
        mirrorTabs();
    if (has(changes, ui::Change::Items | ui::Change::Selection))
        mirrorSelection();
}

/// The native control takes a `&` for the mark of an access key.
void TabWindow::mirrorTabs() {
    shown_.clear();
    const auto& tabs = strip().tabs();
    auto native = static_cast<std::size_t>(send(TCM_GETITEMCOUNT));
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        if (!tabs[i].visible)
            continue;
        std::u16string caption = ui::escapedForCaption(shownLine(tabs[i].caption, kMostCaptionUnits));
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = wideBuffer(caption);
        const std::size_t place = shown_.size();
        send(place < native ? TCM_SETITEMW : TCM_INSERTITEMW, place, reinterpret_cast<LPARAM>(&item));
        shown_.push_back(i);
    }
    for (; native > shown_.size(); --native)
        send(TCM_DELETEITEM, native - 1);
    ::InvalidateRect(handle(), nullptr, TRUE);
}

void TabWindow::mirrorSelection() const {
    const auto selected = strip().selected();
    const auto at = selected ? std::find(shown_.begin(), shown_.end(), *selected) : shown_.end();
    send(TCM_SETCURSEL,
         at != shown_.end() ? static_cast<WPARAM>(at - shown_.begin()) : static_cast<WPARAM>(-1));
}

std::optional<LRESULT> TabWindow::notified(NMHDR& header) {
    if (header.code != static_cast<UINT>(TCN_SELCHANGE))
        return std::nullopt;
    const auto native = static_cast<std::size_t>(send(TCM_GETCURSEL));
    if (native < shown_.size())
        strip().userSelected(shown_[native]);
    return 0;
}

ui::Borders measuredTabBorders(HINSTANCE module, HFONT font, std::int32_t dpi) {
    constexpr LONG kSide = 1000;
    const HWND sample = ::CreateWindowExW(0, WC_TABCONTROLW, L"", 0, 0, 0, kSide, kSide, HWND_MESSAGE,
                                          nullptr, module, nullptr);
    ::SendMessageW(sample, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    wchar_t caption[] = L"Ag";
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption;
    ::SendMessageW(sample, TCM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    RECT inner{0, 0, kSide, kSide};
    ::SendMessageW(sample, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inner));
    ::DestroyWindow(sample);
    return {ui::toTwips(inner.left, dpi), ui::toTwips(inner.top, dpi), ui::toTwips(kSide - inner.right, dpi),
            ui::toTwips(kSide - inner.bottom, dpi)};
}

}  // namespace quorel::win32

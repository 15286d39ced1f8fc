#include "platform/win32/ui/list_window.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"
#include "platform/win32/ui/window_scopes.h"

namespace quorel::win32 {

namespace {

constexpr int kRowSpace = 5;  // pixels at 96 dots per inch
constexpr std::size_t kMostTitleUnits = 259;

[[nodiscard]] int formatOf(ui::Alignment alignment) noexcept {
    switch (alignment) {
        case ui::Alignment::Right:
            return LVCFMT_RIGHT;
        case ui::Alignment::Centre:
            return LVCFMT_CENTER;
        case ui::Alignment::Left:
            break;
    }
    return LVCFMT_LEFT;
}

[[nodiscard]] int arrowOf(ui::SortOrder order) noexcept {
    switch (order) {
        case ui::SortOrder::Ascending:
            return HDF_SORTUP;
        case ui::SortOrder::Descending:
            return HDF_SORTDOWN;
        case ui::SortOrder::None:
            break;
    }
    return 0;
}

[[nodiscard]] bool maySelect(UINT message) noexcept {
    return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN ||
           message == WM_KEYDOWN || message == WM_CHAR;
}

}  // namespace

NativeWindow::Description ListWindow::describe() {
    const DWORD titles = list().isTitled() ? 0U : LVS_NOCOLUMNHEADER;
    return {u"SysListView32",
            titles | WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                LVS_SHOWSELALWAYS | LVS_SINGLESEL | LVS_SHAREIMAGELISTS,
            WS_EX_CLIENTEDGE};
}

void ListWindow::opened() {
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
         static_cast<LPARAM>(LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP));
    ::SetWindowTheme(handle(), L"Explorer", nullptr);
}

/// The rows of a report are as high as its small pictures, so these have the room that rows need; an empty
/// one gives it where there are none.
void ListWindow::spaceRows() {
    const int height = lineHeight(frame()->font()) + ::MulDiv(kRowSpace, dpi(), USER_DEFAULT_SCREEN_DPI);
    NativeImages next =
        list().images() ? makeNativeImages(*list().images(), dpi(), height) : makeSpacer(height);
    send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(next.get()));
    images_ = std::move(next);
}

/// The source keeps the checks: the system's list asks for them as for the texts. Those of its own pictures
/// that it has made for the style are replaced, for they have one size at every resolution.
void ListWindow::showCheckBoxes() {
    const bool boxes = list().hasCheckBoxes();
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, boxes ? LVS_EX_CHECKBOXES : 0);
    if (!boxes)
        return;
    send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
    NativeImages next = makeCheckImages(handle(), dpi(), toColorRef(ground()));
    const auto before = reinterpret_cast<HIMAGELIST>(
        send(LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(next.get())));
    if (before != nullptr && before != checks_.get())
        ::ImageList_Destroy(before);
    checks_ = std::move(next);
}

void ListWindow::mirror(ui::Change changes) {
    const Flagged mirroring(mirroring_);
    NativeWindow::mirror(changes & static_cast<ui::Change>(~static_cast<std::uint32_t>(ui::Change::Text)));
    if (has(changes, ui::Change::Colours))
        mirrorColours();
    if (has(changes, ui::Change::Colours | ui::Change::Style))
        showCheckBoxes();
    if (has(changes, ui::Change::Images)) {
        spaceRows();
        ::InvalidateRect(handle(), nullptr, TRUE);
    }
    if (has(changes, ui::Change::Columns | ui::Change::Items)) {
        const RedrawPause pause(handle());
        if (has(changes, ui::Change::Columns))
            mirrorColumns();
        if (has(changes, ui::Change::Items)) {
            hovered_.reset();
            mirrorRows();
        }
    }
    if (has(changes, ui::Change::Selection | ui::Change::Items))
        mirrorSelection();
    if (has(changes, ui::Change::ScrollTo))
        scrollToTarget();
    if (has(changes, ui::Change::Columns | ui::Change::Items))
        ::InvalidateRect(handle(), nullptr, TRUE);
    scrollPlace_ = scrollPlace();
}

void ListWindow::mirrorColumns() {
    const auto wanted = static_cast<int>(list().columns().size());
    for (; columns_ > wanted; --columns_)
        send(LVM_DELETECOLUMN, static_cast<WPARAM>(columns_ - 1));
    for (; columns_ < wanted; ++columns_) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH | LVCF_SUBITEM;
        column.iSubItem = columns_;
        send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(columns_), reinterpret_cast<LPARAM>(&column));
    }
    header_ = reinterpret_cast<HWND>(send(LVM_GETHEADER));
    for (std::size_t i = 0; i < list().columns().size(); ++i)
        mirrorColumn(i);
}

void ListWindow::mirrorColumn(std::size_t index) const {
    const ui::Column& wanted = list().columns()[index];
    std::u16string title = shownLine(wanted.title, kMostTitleUnits);
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
    column.fmt = formatOf(wanted.alignment);
    column.cx = toPixels(wanted.width, dpi());
    column.pszText = wideBuffer(title);
    send(LVM_SETCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    ::SendMessageW(header_, HDM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
    item.fmt = (item.fmt & ~(HDF_SORTUP | HDF_SORTDOWN)) | arrowOf(wanted.sort);
    ::SendMessageW(header_, HDM_SETITEMW, index, reinterpret_cast<LPARAM>(&item));
}

void ListWindow::mirrorRows() {
    const auto rows = static_cast<WPARAM>(std::min(list().rowCount(), ui::VirtualList::kMostRows));
    const bool sameCount = static_cast<WPARAM>(send(LVM_GETITEMCOUNT)) == rows;
    send(LVM_SETITEMCOUNT, rows, LVSICF_NOSCROLL);
    if (!sameCount && !list().selectedRow() && rows > 0)
        send(LVM_ENSUREVISIBLE, 0, FALSE);
}

/// Row by row: to select none by the number of all rows costs a step for each of them.
void ListWindow::mirrorSelection() {
    const std::optional<std::size_t> wanted = list().selectedRow();
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    if (selection_ && selection_ != wanted)
        send(LVM_SETITEMSTATE, *selection_, reinterpret_cast<LPARAM>(&item));
    if (wanted) {
        item.state = LVIS_SELECTED | LVIS_FOCUSED;
        send(LVM_SETITEMSTATE, *wanted, reinterpret_cast<LPARAM>(&item));
        send(LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(*wanted));
    }
    selection_ = wanted;
}

ui::Colour ListWindow::ground() const noexcept {
    return list().background().value_or(toColour(::GetSysColor(COLOR_WINDOW)));
}

void ListWindow::mirrorColours() const {
    const COLORREF back = toColorRef(ground());
    send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(back));
    send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(back));
    send(LVM_SETTEXTCOLOR, 0,
         static_cast<LPARAM>(list().background() ? readableOn(ground()) : ::GetSysColor(COLOR_WINDOWTEXT)));
}

void ListWindow::rescaled() {
    NativeWindow::rescaled();
    if (control() == nullptr)
        return;
    const Flagged mirroring(mirroring_);
    spaceRows();
    showCheckBoxes();
    mirrorColumns();
    list().userMovedCells();
}

void ListWindow::setRowSelected(std::size_t row, bool selected) {
    const Flagged mirroring(mirroring_);
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    item.state = selected ? LVIS_SELECTED : 0U;
    send(LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

LRESULT ListWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_DESTROY)  // a list that ends may walk over its rows, though it owns none
        original(LVM_SETITEMCOUNT, 0, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
    if (control() == nullptr)
        return NativeWindow::serve(message, w, l);
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(l)->hwndFrom == header_)
        headerNotified(*reinterpret_cast<const NMHEADERW*>(l));
    if (message == WM_CONTEXTMENU && serving_ > 0) {
        ::PostMessageW(handle(), message, w, l);  // the row under the mouse is to be reported first
        return 0;
    }
    if (message == WM_MOUSEMOVE)
        hover(l);
    if (control() == nullptr)
        return 0;
    if (pressedBox(message, l)) {
        report();
        return 0;
    }
    ++serving_;
    const LRESULT result =
        maySelect(message) ? serveSelecting(message, w, l) : NativeWindow::serve(message, w, l);
    if (--serving_ == 0)
        report();
    return result;
}

/// Where the system's list moves its selection it may walk over all of its rows to find the selected one. It
/// finds none when that one is taken away first; where the list then selects nothing, it is put back.
LRESULT ListWindow::serveSelecting(UINT message, WPARAM w, LPARAM l) {
    const bool pressed = message != WM_KEYDOWN && message != WM_CHAR;
    if (message == WM_LBUTTONDOWN)
        pressReported_ = false;
    const std::optional<std::size_t> before = selection_;
    const bool clears = pressed && !hitsRow(l);
    if (before)
        setRowSelected(*before, false);
    const LRESULT result = NativeWindow::serve(message, w, l);
    if (control() == nullptr || !before || selection_)
        return result;
    if (clears)
        noted_.selection = true;
    else
        setRowSelected(*before, true);
    return result;
}

/// The system's list would check the box itself, and select the row or not, depending on its version.
bool ListWindow::pressedBox(UINT message, LPARAM at) {
    if ((message != WM_LBUTTONDOWN && message != WM_LBUTTONDBLCLK) || !list().hasCheckBoxes())
        return false;
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
    if (send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0 ||
        (hit.flags & LVHT_ONITEM) != LVHT_ONITEMSTATEICON)
        return false;
    noted_.check = static_cast<std::size_t>(hit.iItem);
    ::SetFocus(handle());
    return true;
}

bool ListWindow::hitsRow(LPARAM at) const noexcept {
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
    return ::SendMessageW(handle(), LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) >= 0;
}

}  // namespace quorel::win32

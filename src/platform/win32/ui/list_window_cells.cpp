// Where the cells of the system's list are and how they are drawn.

#include <algorithm>
#include <string>

#include "platform/win32/text.h"
#include "platform/win32/ui/list_window.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostGroupUnits = 500;
constexpr int kTextInset = 6;  // pixels at 96 dots per inch

/// What the native list says: while a key moves the selection it paints the row that was left before it tells
/// which one was reached.
[[nodiscard]] bool isSelected(HWND list, std::size_t row) noexcept {
    return (::SendMessageW(list, LVM_GETITEMSTATE, row, LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

}  // namespace

/// In the list's client coordinates, as far as it is in sight.
std::optional<RECT> ListWindow::cellRect(ui::CellIndex cell) const {
    RECT row{}, column{}, client{}, titles{};
    row.left = LVIR_BOUNDS;
    if (::SendMessageW(handle(), LVM_GETITEMRECT, cell.row, reinterpret_cast<LPARAM>(&row)) == FALSE ||
        ::SendMessageW(header_, HDM_GETITEMRECT, cell.column, reinterpret_cast<LPARAM>(&column)) == FALSE)
        return std::nullopt;
    ::MapWindowPoints(header_, handle(), reinterpret_cast<POINT*>(&column), 2);
    ::GetClientRect(handle(), &client);
    ::GetWindowRect(header_, &titles);
    ::MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&titles), 2);
    const RECT seen{std::max(column.left, client.left), std::max(row.top, titles.bottom),
                    std::min(column.right, client.right), std::min(row.bottom, client.bottom)};
    return seen.left < seen.right && seen.top < seen.bottom ? std::optional(seen) : std::nullopt;
}

std::optional<ui::Rect> ListWindow::cellBounds(ui::CellIndex cell) {
    if (handle() == nullptr)
        return std::nullopt;
    const NativeScope scope(services().controls);
    std::optional<RECT> place = cellRect(cell);
    if (!place)
        return std::nullopt;
    RECT outer{};
    ::GetWindowRect(handle(), &outer);
    ::MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&*place), 2);
    const ui::Twips left = ui::toTwips(place->left - outer.left, dpi());
    const ui::Twips top = ui::toTwips(place->top - outer.top, dpi());
    return ui::Rect{left, top, ui::toTwips(place->right - outer.left, dpi()) - left,
                    ui::toTwips(place->bottom - outer.top, dpi()) - top};
}

POINT ListWindow::scrollPlace() const {
    RECT titles{};
    ::GetWindowRect(header_, &titles);
    ::MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&titles), 1);
    return {titles.left, ::GetScrollPos(handle(), SB_VERT)};
}

void ListWindow::scrollToTarget() const {
    const auto target = list().scrollTarget();
    if (!target)
        return;
    send(LVM_ENSUREVISIBLE, target->row, FALSE);
    RECT column{}, client{};
    if (!target->column ||
        ::SendMessageW(header_, HDM_GETITEMRECT, *target->column, reinterpret_cast<LPARAM>(&column)) == FALSE)
        return;
    ::MapWindowPoints(header_, handle(), reinterpret_cast<POINT*>(&column), 2);
    ::GetClientRect(handle(), &client);
    if (const LONG way = std::min(column.left, std::max(0L, column.right - client.right)); way != 0)
        send(LVM_SCROLL, static_cast<WPARAM>(way), 0);
}

/// The tool tip is the cell's under the mouse, or the list's.
void ListWindow::hover(LPARAM at) {
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
    std::optional<ui::CellIndex> cell;
    if (::SendMessageW(handle(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)) >= 0)
        cell = ui::CellIndex{static_cast<std::size_t>(hit.iItem),
                             static_cast<std::size_t>(std::max(hit.iSubItem, 0))};
    if (cell == hovered_)
        return;
    hovered_ = cell;
    std::u16string text = cell ? list().cellToolTip(*cell) : std::u16string();
    if (control() == nullptr || (text.empty() && cellToolTip_.empty()))
        return;
    frame()->setToolTip(handle(), text.empty() ? list().toolTip() : text);
    cellToolTip_ = std::move(text);
    toolTipSet();
}

LRESULT ListWindow::draw(NMLVCUSTOMDRAW& drawing) const {
    switch (drawing.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return ::GetFocus() == handle() && !list().hasLooks() ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT:
            return drawRow(drawing);
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
            return drawCell(drawing);
        default:
            return CDRF_DODEFAULT;
    }
}

/// A shade between the ground and the system's highlight, for the system's own colour of a selected row in a
/// list without the focus can hardly be told from a coloured ground.
ui::Colour ListWindow::fadedHighlight() const noexcept {
    return between(ground(), toColour(::GetSysColor(COLOR_HIGHLIGHT)));
}

LRESULT ListWindow::drawRow(NMLVCUSTOMDRAW& drawing) const {
    const auto row = static_cast<std::size_t>(drawing.nmcd.dwItemSpec);
    const bool looks = list().hasLooks();
    if (looks && list().isGroup(row)) {
        if (control() != nullptr)
            drawGroup(drawing.nmcd.hdc, row);
        return CDRF_SKIPDEFAULT;
    }
    if (control() != nullptr && isSelected(handle(), row) && ::GetFocus() != handle()) {
        drawing.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
        drawing.clrTextBk = toColorRef(fadedHighlight());
        drawing.clrText = readableOn(fadedHighlight());
    }
    return looks ? CDRF_NOTIFYSUBITEMDRAW : CDRF_DODEFAULT;
}

/// What the last cell was given would be the next one's, too.
LRESULT ListWindow::drawCell(NMLVCUSTOMDRAW& drawing) const {
    const ui::CellIndex cell{static_cast<std::size_t>(drawing.nmcd.dwItemSpec),
                             static_cast<std::size_t>(std::max(drawing.iSubItem, 0))};
    const ui::CellLook look = list().cellLook(cell);
    if (control() == nullptr)
        return CDRF_DODEFAULT;
    const bool selected = isSelected(handle(), cell.row);
    const ui::Colour back = selected ? fadedHighlight() : look.background.value_or(ground());
    if (!selected || ::GetFocus() != handle()) {
        drawing.clrTextBk = toColorRef(back);
        drawing.clrText = look.text && !selected        ? toColorRef(*look.text)
                          : look.background || selected ? readableOn(back)
                          : list().background()         ? readableOn(ground())
                                                        : ::GetSysColor(COLOR_WINDOWTEXT);
    }
    ::SelectObject(drawing.nmcd.hdc, services().tools.font(dpi(), look.bold));
    return CDRF_NEWFONT;
}

void ListWindow::drawGroup(HDC dc, std::size_t row) const {
    const std::u16string text = shownLine(list().cellText(row, 0), kMostGroupUnits);
    RECT place{};
    place.left = LVIR_BOUNDS;
    if (control() == nullptr ||
        ::SendMessageW(handle(), LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place)) == FALSE)
        return;
    const bool focused = ::GetFocus() == handle();
    const bool selected = isSelected(handle(), row);
    const ui::Colour back = !selected ? between(ground(), toColour(::GetSysColor(COLOR_BTNSHADOW)))
                            : focused ? toColour(::GetSysColor(COLOR_HIGHLIGHT))
                                      : fadedHighlight();
    ::FillRect(dc, &place, services().tools.brush(back));
    const SelectScope font(dc, services().tools.font(dpi(), true));
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, readableOn(back));
    RECT inner = place;
    inner.left += ::MulDiv(kTextInset, dpi(), USER_DEFAULT_SCREEN_DPI);
    ::DrawTextW(dc, wide(text), static_cast<int>(text.size()), &inner,
                DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (selected && focused)
        ::DrawFocusRect(dc, &place);
}

}  // namespace quorel::win32

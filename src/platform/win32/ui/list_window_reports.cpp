// What the system's list asks and tells.

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/win32/text.h"
#include "platform/win32/ui/list_window.h"
#include "platform/win32/ui/native_text.h"

namespace quorel::win32 {

std::optional<LRESULT> ListWindow::notified(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW:
            tellCell(reinterpret_cast<NMLVDISPINFOW&>(header).item);
            return 0;
        case LVN_ODCACHEHINT:
            tellNextRows(reinterpret_cast<const NMLVCACHEHINT&>(header));
            return 0;
        case LVN_ODFINDITEMW:
            return find(reinterpret_cast<const NMLVFINDITEMW&>(header));
        case LVN_ITEMCHANGED:
            noteSelection(reinterpret_cast<const NMLISTVIEW&>(header));
            return 0;
        case NM_CLICK:
            noteClick(reinterpret_cast<const NMITEMACTIVATE&>(header));
            return 0;
        case LVN_ITEMACTIVATE:
            noted_.activation = true;
            return 0;
        case NM_CUSTOMDRAW:
            return draw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
        case LVN_COLUMNCLICK:
            noted_.columnClick =
                static_cast<std::size_t>(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
            return 0;
        default:
            return std::nullopt;
    }
}

void ListWindow::tellCell(LVITEMW& item) const {
    if ((item.mask & LVIF_IMAGE) != 0) {
        const bool first = item.iItem >= 0 && item.iSubItem == 0;
        const auto place = first ? list().rowPicture(static_cast<std::size_t>(item.iItem)) : std::nullopt;
        item.iImage = place ? static_cast<int>(*place) : I_IMAGENONE;
        if (control() == nullptr)
            return;
    }
    if (list().hasCheckBoxes() && item.iItem >= 0 && item.iSubItem == 0) {
        const bool checked = list().isChecked(static_cast<std::size_t>(item.iItem));
        item.mask |= LVIF_STATE;
        item.stateMask |= LVIS_STATEIMAGEMASK;
        item.state = (item.state & ~LVIS_STATEIMAGEMASK) | INDEXTOSTATEIMAGEMASK(checked ? 2U : 1U);
        if (control() == nullptr)
            return;
    }
    if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0)
        return;
    std::u16string text;
    if (item.iItem >= 0 && item.iSubItem >= 0)
        text = list().cellText(static_cast<std::size_t>(item.iItem), static_cast<std::size_t>(item.iSubItem));
    const std::u16string shown = shownLine(text, static_cast<std::size_t>(item.cchTextMax) - 1);
    std::memcpy(item.pszText, shown.c_str(), (shown.size() + 1) * sizeof(char16_t));
}

void ListWindow::tellNextRows(const NMLVCACHEHINT& hint) const {
    const std::size_t rows = list().rowCount();
    if (rows == 0 || hint.iFrom < 0 || hint.iTo < hint.iFrom)
        return;
    const std::size_t last = std::min(static_cast<std::size_t>(hint.iTo), rows - 1);
    list().prepareRows(static_cast<std::size_t>(hint.iFrom), last);
}

LRESULT ListWindow::find(const NMLVFINDITEMW& wanted) const {
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || wanted.lvfi.psz == nullptr)
        return -1;
    const std::u16string text(narrowView(wanted.lvfi.psz));
    const std::size_t start = wanted.iStart > 0 ? static_cast<std::size_t>(wanted.iStart) : 0;
    const std::optional<std::size_t> found = list().userFinds(text, start);
    return found ? static_cast<LRESULT>(*found) : -1;
}

void ListWindow::noteClick(const NMITEMACTIVATE& click) {
    if (click.iItem >= 0)
        noted_.click = ui::CellIndex{static_cast<std::size_t>(click.iItem),
                                     static_cast<std::size_t>(std::max(click.iSubItem, 0))};
}

/// Row -1 stands for all rows.
void ListWindow::noteSelection(const NMLISTVIEW& change) {
    if (((change.uOldState ^ change.uNewState) & LVIS_SELECTED) == 0)
        return;
    if ((change.uNewState & LVIS_SELECTED) != 0 && change.iItem >= 0)
        selection_ = static_cast<std::size_t>(change.iItem);
    else if (change.iItem < 0 || selection_ == static_cast<std::size_t>(change.iItem))
        selection_.reset();
    if (!mirroring_)
        noted_.selection = true;
}

void ListWindow::headerNotified(const NMHEADERW& notice) {
    const auto column = static_cast<std::size_t>(notice.iItem);
    switch (notice.hdr.code) {
        case HDN_BEGINTRACKW:
            tracking_ = true;
            break;
        case HDN_ENDTRACKW:
            tracking_ = false;
            noted_.columnResize = column;
            break;
        case HDN_ITEMCHANGEDW:
            if (!tracking_ && !mirroring_ && notice.pitem != nullptr && (notice.pitem->mask & HDI_WIDTH) != 0)
                noted_.columnResize = column;
            break;
        default:
            break;
    }
}

/// Each step may destroy the control, so each asks anew whether it is still there.
void ListWindow::report() {
    const Noted noted = std::exchange(noted_, {});
    const ui::Control* const self = control();
    const auto alive = [&] { return control() != nullptr && control() == self; };
    if (alive() && noted.columnResize) {
        const auto width = static_cast<std::int32_t>(send(LVM_GETCOLUMNWIDTH, *noted.columnResize));
        const auto& columns = list().columns();
        if (*noted.columnResize < columns.size() &&
            toPixels(columns[*noted.columnResize].width, dpi()) != width)
            list().userResizedColumn(*noted.columnResize, ui::toTwips(width, dpi()));
    }
    if (alive() && !mirroring_) {
        const POINT before = std::exchange(scrollPlace_, scrollPlace());
        if (before.x != scrollPlace_.x || before.y != scrollPlace_.y)
            list().userMovedCells();
    }
    if (alive() && noted.columnClick)
        list().userClickedColumn(*noted.columnClick);
    if (alive() && (noted.selection || noted.click)) {
        const std::optional<std::size_t> row = selection_;
        const bool moved = row != list().selectedRow();
        const bool again = noted.click && row && !pressReported_;
        pressReported_ = pressReported_ || moved;
        if (moved || again)
            list().userSelected(row);
    }
    if (alive() && noted.check)
        list().userClickedBox(*noted.check);
    if (alive() && noted.click)
        list().userClickedCell(*noted.click);
    if (alive() && noted.activation)
        list().userActivated();
}

POINT ListWindow::contextPoint() const {
    RECT row{};
    row.left = LVIR_LABEL;
    if (selection_ &&
        ::SendMessageW(handle(), LVM_GETITEMRECT, *selection_, reinterpret_cast<LPARAM>(&row)) != FALSE)
        return {row.left + 8, row.bottom};
    return NativeWindow::contextPoint();
}

}  // namespace quorel::win32

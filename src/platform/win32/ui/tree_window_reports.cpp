// What the system's tree asks and tells.

#include <cstring>
#include <utility>

#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/tree_window.h"
#include "platform/win32/ui/window_scopes.h"

namespace quorel::win32 {

namespace {

/// Messages during which the tree reports what is passed on when it has done with them. Not those that run
/// handlers, for a handler may show a window and the tree be used meanwhile.
[[nodiscard]] bool mayReport(UINT message) noexcept {
    return (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_KEYDOWN ||
           (message >= TV_FIRST && message < TV_FIRST + 0x100);
}

}  // namespace

ui::TreeItemId TreeWindow::itemOfSlot(LPARAM slot) const noexcept {
    const auto index = static_cast<std::size_t>(slot);
    return index < entries_.size() ? entries_[index].item : ui::TreeItemId::None;
}

ui::TreeItemId TreeWindow::itemOf(HTREEITEM native) const {
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_PARAM;
    item.hItem = native;
    if (native == nullptr || send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE)
        return ui::TreeItemId::None;
    return itemOfSlot(item.lParam);
}

void TreeWindow::forget(LPARAM slot) noexcept {
    const auto index = static_cast<std::size_t>(slot);
    if (index < entries_.size())
        entries_[index] = {};
}

/// The item whose text or picture is there.
ui::TreeItemId TreeWindow::hit(LPARAM at) const {
    TVHITTESTINFO test{};
    test.pt = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
    send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
    return (test.flags & TVHT_ONITEM) != 0 ? itemOf(test.hItem) : ui::TreeItemId::None;
}

void TreeWindow::tellText(TVITEMW& item) const {
    if ((item.mask & TVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0)
        return;
    const ui::TreeItemId asked = itemOfSlot(item.lParam);
    // The tree measures the texts of lines that nobody sees when they are added.
    const bool isUnread = (mirroring_ || painting_) && !tree().isTextKnown(asked);
    if (isUnread && painting_)
        ::InvalidateRect(handle(), nullptr, FALSE);
    const std::u16string shown = shownLine(isUnread ? std::u16string() : tree().itemText(asked),
                                           static_cast<std::size_t>(item.cchTextMax) - 1);
    std::memcpy(item.pszText, shown.c_str(), (shown.size() + 1) * sizeof(char16_t));
}

std::vector<ui::TreeItemId> TreeWindow::unreadInView() const {
    std::vector<ui::TreeItemId> unread;
    const auto next = [this](WPARAM relation, HTREEITEM from) {
        return reinterpret_cast<HTREEITEM>(send(TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(from)));
    };
    HTREEITEM native = next(TVGN_FIRSTVISIBLE, nullptr);
    for (LRESULT lines = send(TVM_GETVISIBLECOUNT) + 1; lines > 0 && native != nullptr; --lines) {
        if (const ui::TreeItemId item = itemOf(native); !tree().isTextKnown(item))
            unread.push_back(item);
        native = next(TVGN_NEXTVISIBLE, native);
    }
    return unread;
}

/// The handler of each text may destroy the control.
void TreeWindow::readSeen() {
    const ui::Control* const self = control();
    for (const ui::TreeItemId item : unreadInView()) {
        static_cast<void>(tree().itemText(item));
        if (control() == nullptr || control() != self || handle() == nullptr)
            return;
        const Flagged mirroring(mirroring_);
        mirrorItem(item);
    }
}

std::optional<LRESULT> TreeWindow::notified(NMHDR& header) {
    switch (header.code) {
        case TVN_GETDISPINFOW:
            tellText(reinterpret_cast<NMTVDISPINFOW&>(header).item);
            return 0;
        case TVN_DELETEITEMW:
            forget(reinterpret_cast<const NMTREEVIEWW&>(header).itemOld.lParam);
            return 0;
        case TVN_SELCHANGINGW:
            return focusing_ ? TRUE : FALSE;
        case TVN_SELCHANGEDW:
            noted_.selection = noted_.selection || !mirroring_;
            return 0;
        case TVN_ITEMEXPANDINGW: {
            if (mirroring_)
                return FALSE;
            const auto& notice = reinterpret_cast<const NMTREEVIEWW&>(header);
            const ui::TreeItemId item = itemOfSlot(notice.itemNew.lParam);
            (tree().isExpanded(item) ? noted_.collapse : noted_.expand) = item;
            return TRUE;
        }
        case NM_CUSTOMDRAW:
            return draw(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
        default:
            return std::nullopt;
    }
}

/// The system's own colour of a selected item in a tree without the focus can hardly be told from its ground.
LRESULT TreeWindow::draw(NMTVCUSTOMDRAW& drawing) const {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) {
        // A theme may have painted another ground than the texts have.
        ::FillRect(drawing.nmcd.hdc, &drawing.nmcd.rc, services().tools.brush(ground()));
        return ::GetFocus() == handle() ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
    }
    if (drawing.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && (drawing.nmcd.uItemState & CDIS_SELECTED) != 0) {
        const ui::Colour faded = between(ground(), toColour(::GetSysColor(COLOR_HIGHLIGHT)));
        drawing.clrTextBk = toColorRef(faded);
        drawing.clrText = readableOn(faded);
    }
    return CDRF_DODEFAULT;
}

LRESULT TreeWindow::serve(UINT message, WPARAM w, LPARAM l) {
    if (control() == nullptr)
        return NativeWindow::serve(message, w, l);
    if (message == WM_SETFOCUS) {
        // The system's tree would select its first item.
        {
            const Flagged focusing(focusing_);
            original(message, w, l);
        }
        focused();
        return 0;
    }
    if (message == WM_CHAR) {
        type(static_cast<char16_t>(w));
        return 0;
    }
    if (message == WM_PAINT || message == WM_PRINTCLIENT) {
        readSeen();
        if (control() == nullptr || handle() == nullptr)
            return 0;
        const Flagged painting(painting_);
        return NativeWindow::serve(message, w, l);
    }
    if (!mayReport(message))
        return NativeWindow::serve(message, w, l);
    ++serving_;
    const LRESULT result = serveInput(message, w, l);
    if (--serving_ == 0)
        report();
    return result;
}

LRESULT TreeWindow::serveInput(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_KEYDOWN && w == VK_RETURN) {
        noted_.activation = tree().selected();
        return 0;
    }
    if (message == WM_LBUTTONDOWN)
        noted_.click = hit(l);
    if (message == WM_LBUTTONDBLCLK)
        noted_.activation = hit(l);
    if (message != WM_RBUTTONDOWN)
        return NativeWindow::serve(message, w, l);
    // The menu is the selected item's, so the one under the mouse is selected first.
    const HTREEITEM native = nativeItem(hit(l));
    ::SetFocus(handle());
    if (native != nullptr && control() != nullptr)
        send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(native));
    return 0;
}

void TreeWindow::type(char16_t unit) {
    const ui::TreeItemId found = typing_.typed(tree(), unit, ::GetTickCount64());
    if (found == ui::TreeItemId::None || found == tree().selected())
        return;
    send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(nativeItem(found)));
}

/// Each step may destroy the control, so each asks anew whether it is still there.
void TreeWindow::report() {
    const Noted noted = std::exchange(noted_, {});
    const ui::Control* const self = control();
    const auto alive = [&] { return control() != nullptr && control() == self; };
    if (alive() && !mirroring_ && (noted.selection || noted.click != ui::TreeItemId::None)) {
        const ui::TreeItemId item = itemOf(caret());
        if (item != tree().selected() || item == noted.click)
            tree().userSelected(item);
    }
    if (alive() && noted.activation != ui::TreeItemId::None)
        tree().userActivated(noted.activation);
    if (alive() && noted.collapse != ui::TreeItemId::None)
        tree().userCollapsed(noted.collapse);
    if (alive() && noted.expand != ui::TreeItemId::None)
        tree().userExpands(noted.expand);
}

}  // namespace quorel::win32

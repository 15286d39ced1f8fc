#include "platform/win32/ui/tree_window.h"

#include <algorithm>
#include <cstring>

#include "platform/win32/ui/window_scopes.h"

namespace quorel::win32 {

namespace {

constexpr int kLineSpace = 5;  // pixels at 96 dots per inch

/// The first item in the order of the lines that is not below `top`.
[[nodiscard]] ui::TreeItemId endOf(const ui::Tree& tree, ui::TreeItemId top) {
    while (top != ui::TreeItemId::None && tree.nextSibling(top) == ui::TreeItemId::None)
        top = tree.parentOf(top);
    return tree.nextSibling(top);
}

}  // namespace

NativeWindow::Description TreeWindow::describe() {
    return {u"SysTreeView32",
            WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
                TVS_DISABLEDRAGDROP,
            WS_EX_CLIENTEDGE};
}

void TreeWindow::opened() {
    send(TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
    spaceLines();
}

void TreeWindow::spaceLines() const {
    int height = lineHeight(frame()->font()) + ::MulDiv(kLineSpace, dpi(), USER_DEFAULT_SCREEN_DPI);
    if (const auto& images = tree().images())
        height = std::max(height, toPixels(images->size().height, dpi()) + 2);
    send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(height));
}

void TreeWindow::rescaled() {
    NativeWindow::rescaled();
    if (control() == nullptr)
        return;
    const Flagged mirroring(mirroring_);
    mirrorImages();
}

void TreeWindow::mirror(ui::Change changes) {
    const Flagged mirroring(mirroring_);
    NativeWindow::mirror(changes & static_cast<ui::Change>(~static_cast<std::uint32_t>(ui::Change::Text)));
    if (has(changes, ui::Change::Colours))
        mirrorColours();
    if (has(changes, ui::Change::Images))
        mirrorImages();
    if (has(changes, ui::Change::Items))
        mirrorAll();
    if (has(changes, ui::Change::Selection | ui::Change::Items))
        mirrorSelection();
    const HTREEITEM target = nativeItem(tree().scrollTarget());
    if (has(changes, ui::Change::ScrollTo) && target != nullptr)
        send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(target));
}

void TreeWindow::mirrorImages() {
    NativeImages next = tree().images() ? makeNativeImages(*tree().images(), dpi()) : NativeImages();
    send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(next.get()));
    images_ = std::move(next);
    spaceLines();
    for (const Entry& entry : entries_)
        if (entry.native != nullptr)
            mirrorItem(entry.item);
}

ui::Colour TreeWindow::ground() const noexcept {
    return tree().background().value_or(toColour(::GetSysColor(COLOR_WINDOW)));
}

void TreeWindow::mirrorColours() const {
    send(TVM_SETBKCOLOR, 0, static_cast<LPARAM>(toColorRef(ground())));
    send(TVM_SETTEXTCOLOR, 0,
         static_cast<LPARAM>(tree().background() ? readableOn(ground()) : ::GetSysColor(COLOR_WINDOWTEXT)));
}

/// A tree may ask like a text box does.
HBRUSH TreeWindow::colours(HDC dc) {
    ::SetBkColor(dc, toColorRef(ground()));
    ::SetTextColor(dc, tree().background() ? readableOn(ground()) : ::GetSysColor(COLOR_WINDOWTEXT));
    return services().tools.brush(ground());
}

void TreeWindow::mirrorAll() {
    const RedrawPause pause(handle());
    send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    entries_.clear();
    open(ui::TreeItemId::Root);
}

HTREEITEM TreeWindow::nativeItem(ui::TreeItemId item) const noexcept {
    const std::size_t slot = slotOf(item);
    return slot < entries_.size() && entries_[slot].item == item ? entries_[slot].native : nullptr;
}

void TreeWindow::describeItem(ui::TreeItemId item, TVITEMEXW& native) const {
    const auto& images = tree().images();
    const std::u16string& key = tree().itemPicture(item);
    const auto place = images && !key.empty() ? images->placeOf(key) : std::nullopt;
    native.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN | TVIF_STATE;
    native.pszText = LPSTR_TEXTCALLBACKW;
    native.iImage = native.iSelectedImage = place ? static_cast<int>(*place) : I_IMAGENONE;
    native.cChildren = tree().mayHaveChildren(item) ? 1 : 0;
    native.stateMask = TVIS_BOLD;
    native.state = tree().isBold(item) ? TVIS_BOLD : 0U;
}

void TreeWindow::mirrorItem(ui::TreeItemId item) const {
    TVITEMEXW native{};
    describeItem(item, native);
    native.mask |= TVIF_HANDLE;
    native.hItem = nativeItem(item);
    if (!tree().isExpanded(item))
        native.stateMask |= TVIS_EXPANDED | TVIS_EXPANDEDONCE;
    if (native.hItem != nullptr)
        send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&native));
}

void TreeWindow::insert(ui::TreeItemId item) {
    const ui::TreeItemId parent = tree().parentOf(item), before = tree().previousSibling(item);
    TVINSERTSTRUCTW wanted{};
    wanted.hParent = parent == ui::TreeItemId::Root ? TVI_ROOT : nativeItem(parent);
    wanted.hInsertAfter = before == ui::TreeItemId::None                     ? TVI_FIRST
                          : tree().nextSibling(item) == ui::TreeItemId::None ? TVI_LAST
                                                                             : nativeItem(before);
    describeItem(item, wanted.itemex);
    wanted.itemex.mask |= TVIF_PARAM;
    wanted.itemex.lParam = static_cast<LPARAM>(slotOf(item));
    const std::size_t slot = slotOf(item);
    if (slot >= entries_.size())
        entries_.resize(slot + 1);
    entries_[slot].item = item;
    entries_[slot].native =
        reinterpret_cast<HTREEITEM>(send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&wanted)));
}

/// From the innermost out, so that what was opened comes into sight once.
void TreeWindow::open(ui::TreeItemId top) {
    std::vector<ui::TreeItemId> expanded{top};
    const ui::TreeItemId end = endOf(tree(), top);
    for (ui::TreeItemId item = tree().firstChild(top); item != end; item = tree().shownAfter(item)) {
        insert(item);
        if (tree().isExpanded(item))
            expanded.push_back(item);
    }
    for (; !expanded.empty(); expanded.pop_back())
        if (const HTREEITEM native = nativeItem(expanded.back()))
            send(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(native));
}

void TreeWindow::close(ui::TreeItemId item) const {
    send(TVM_EXPAND, TVE_COLLAPSE | TVE_COLLAPSERESET, reinterpret_cast<LPARAM>(nativeItem(item)));
    mirrorItem(item);
}

void TreeWindow::added(ui::TreeItemId item) {
    const ui::TreeItemId parent = tree().parentOf(item);
    if (parent == ui::TreeItemId::Root || (nativeItem(parent) != nullptr && tree().isExpanded(parent)))
        insert(item);
    else if (nativeItem(parent) != nullptr && tree().childCount(parent) == 1)
        mirrorItem(parent);
}

void TreeWindow::applyItem(ui::TreeItemId item, ui::TreeChange change) {
    if (handle() == nullptr || control() == nullptr)
        return;
    const auto keep = shared_from_this();
    const NativeScope scope(services().controls);
    const Flagged mirroring(mirroring_);
    const HTREEITEM native = nativeItem(item);
    if (change == ui::TreeChange::Added)
        added(item);
    else if (native == nullptr)
        return;
    else if (change == ui::TreeChange::Removing)
        send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(native));
    else if (change == ui::TreeChange::Content)
        mirrorItem(item);
    else if (change == ui::TreeChange::Expanded)
        open(item);
    else
        close(item);
}

HTREEITEM TreeWindow::caret() const noexcept {
    return reinterpret_cast<HTREEITEM>(send(TVM_GETNEXTITEM, TVGN_CARET));
}

void TreeWindow::mirrorSelection() const {
    const HTREEITEM wanted = nativeItem(tree().selected());
    if (caret() != wanted)
        send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(wanted));
}

POINT TreeWindow::contextPoint() const {
    RECT line{};
    const HTREEITEM native = caret();
    std::memcpy(&line, &native, sizeof(native));
    if (native != nullptr && send(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&line)) != FALSE)
        return {line.left + 8, line.bottom};
    return NativeWindow::contextPoint();
}

}  // namespace quorel::win32

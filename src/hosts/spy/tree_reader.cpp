#include "hosts/spy/tree_reader.h"

#include <algorithm>

#include "hosts/spy/remote_memory.h"

namespace quorel::spy {

namespace {

constexpr std::size_t kLongestText = 512;

[[nodiscard]] std::vector<std::wstring> split(const std::wstring& path) {
    std::vector<std::wstring> parts(1);
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] != L'/')
            parts.back() += path[i];
        else if (i + 1 < path.size() && path[i + 1] == L'/')
            parts.back() += path[i++];
        else
            parts.emplace_back();
    }
    return parts;
}

}  // namespace

HTREEITEM TreeReader::next(WPARAM relation, HTREEITEM item) const {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree_, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

TreeLine TreeReader::read(HTREEITEM item) const {
    const RemoteMemory memory(tree_, sizeof(TVITEMW) + kLongestText * sizeof(wchar_t));
    TVITEMW native{};
    native.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_CHILDREN | TVIF_STATE;
    native.hItem = item;
    native.stateMask = TVIS_EXPANDED | TVIS_SELECTED;
    native.pszText = reinterpret_cast<wchar_t*>(memory.address() + sizeof(TVITEMW));
    native.cchTextMax = static_cast<int>(kLongestText);
    memory.write(0, &native, sizeof native);
    SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.address()));
    memory.read(0, &native, sizeof native);
    TreeLine line{item, 0, memory.text(sizeof(TVITEMW), kLongestText)};
    line.open = (native.state & TVIS_EXPANDED) != 0;
    line.selected = (native.state & TVIS_SELECTED) != 0;
    line.canOpen = native.cChildren != 0;
    for (HTREEITEM above = next(TVGN_PARENT, item); above != nullptr; above = next(TVGN_PARENT, above))
        ++line.depth;
    return line;
}

std::vector<TreeLine> TreeReader::lines(int most) const {
    std::vector<TreeLine> found;
    for (HTREEITEM item = next(TVGN_ROOT, nullptr); item != nullptr && static_cast<int>(found.size()) < most;
         item = next(TVGN_NEXTVISIBLE, item))
        found.push_back(read(item));
    return found;
}

std::optional<TreeLine> TreeReader::find(const std::wstring& path) const {
    std::optional<TreeLine> found;
    for (const std::wstring& part : split(path)) {
        HTREEITEM item = found ? next(TVGN_CHILD, found->item) : next(TVGN_ROOT, nullptr);
        found.reset();
        for (; item != nullptr && !found; item = next(TVGN_NEXT, item))
            if (TreeLine line = read(item); line.text == part)
                found = std::move(line);
        if (!found)
            return std::nullopt;
    }
    return found;
}

/// The message's rectangle has the item in front, when it goes in.
std::optional<RECT> TreeReader::textOf(HTREEITEM item) const {
    const RemoteMemory memory(tree_, sizeof(RECT));
    memory.write(0, &item, sizeof item);
    if (SendMessageW(tree_, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(memory.address())) == FALSE)
        return std::nullopt;
    RECT bounds{};
    memory.read(0, &bounds, sizeof bounds);
    return bounds;
}

std::optional<POINT> TreeReader::middleOf(const TreeLine& line) const {
    if (!textOf(line.item))
        return std::nullopt;
    SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(line.item));
    const RECT bounds = *textOf(line.item);
    RECT client{};
    GetClientRect(tree_, &client);
    POINT middle{(std::max(bounds.left, 0L) + std::min(bounds.right, client.right)) / 2,
                 (bounds.top + bounds.bottom) / 2};
    ClientToScreen(tree_, &middle);
    return middle;
}

bool TreeReader::isButton(POINT at) const {
    const RemoteMemory memory(tree_, sizeof(TVHITTESTINFO));
    TVHITTESTINFO test{};
    test.pt = at;
    memory.write(0, &test, sizeof test);
    SendMessageW(tree_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(memory.address()));
    memory.read(0, &test, sizeof test);
    return (test.flags & TVHT_ONITEMBUTTON) != 0;
}

std::optional<POINT> TreeReader::buttonOf(const TreeLine& line) const {
    constexpr LONG kInside = 4;
    if (!line.canOpen || !middleOf(line))
        return std::nullopt;
    const RECT bounds = *textOf(line.item);
    POINT at{bounds.left, (bounds.top + bounds.bottom) / 2};
    while (at.x > 0 && !isButton(at))
        --at.x;
    if (at.x <= 0)
        return std::nullopt;
    at.x -= kInside;
    ClientToScreen(tree_, &at);
    return at;
}

}  // namespace quorel::spy

// The user's hands and eyes on native trees and tabs.

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <stdexcept>

#include "platform/ui/access_key.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/tree_window.h"
#include "tests/platform/win32/ui/native_user.h"

namespace quorel::win32::testing {

namespace {

constexpr int kLongText = 300;

[[nodiscard]] HTREEITEM nativeItem(const ui::Tree& tree, ui::TreeItemId item) {
    const auto* const window = dynamic_cast<const TreeWindow*>(windowOf(tree));
    const HTREEITEM native = window != nullptr ? window->nativeItem(item) : nullptr;
    if (native == nullptr)
        throw std::runtime_error("the item is not shown");
    return native;
}

/// Of its text; none while the item is in a closed one.
[[nodiscard]] std::optional<RECT> textRect(HWND tree, HTREEITEM item) {
    RECT place{};
    std::memcpy(&place, &item, sizeof(item));
    if (::SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place)) == FALSE)
        return std::nullopt;
    return place;
}

[[nodiscard]] std::u16string describe(HWND tree, HTREEITEM item, const ui::ImageList* images,
                                      const std::vector<std::u16string>& keys) {
    std::array<wchar_t, kLongText> text{};
    TVITEMW native{};
    native.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_IMAGE | TVIF_CHILDREN | TVIF_STATE;
    native.hItem = item;
    native.pszText = text.data();
    native.cchTextMax = kLongText;
    native.stateMask = ~0U;
    ::SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&native));
    const bool isOpen = (native.state & TVIS_EXPANDED) != 0;
    std::u16string line = isOpen ? u"- " : native.cChildren != 0 ? u"+ " : u". ";
    line += narrowView(native.pszText);
    for (const std::u16string& key : keys)
        if (native.iImage >= 0 && images != nullptr &&
            images->placeOf(key) == static_cast<std::size_t>(native.iImage))
            line.append(u" [").append(key).append(u"]");
    line += (native.state & TVIS_BOLD) != 0 ? u"!" : u"";
    line += (native.state & TVIS_SELECTED) != 0 ? u"*" : u"";
    return line;
}

/// Of all items, each once.
[[nodiscard]] std::vector<std::u16string> pictureKeys(const ui::Tree& tree) {
    std::vector<std::u16string> keys;
    for (ui::TreeItemId item = tree.shownAfter(ui::TreeItemId::Root); item != ui::TreeItemId::None;
         item = tree.shownAfter(item))
        if (const std::u16string& key = tree.itemPicture(item);
            std::find(keys.begin(), keys.end(), key) == keys.end())
            keys.push_back(key);
    return keys;
}

}  // namespace

POINT pointInItem(const ui::Tree& tree, ui::TreeItemId item) {
    const HWND window = windowFor(tree);
    const HTREEITEM native = nativeItem(tree, item);
    ::SendMessageW(window, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(native));
    const auto place = textRect(window, native);
    if (!place)
        throw std::runtime_error("the item is in a closed one");
    return {place->left + 3, (place->top + place->bottom) / 2};
}

POINT pointInButton(const ui::Tree& tree, ui::TreeItemId item) {
    const HWND window = windowFor(tree);
    POINT at = pointInItem(tree, item);
    for (; at.x > 0; --at.x) {
        TVHITTESTINFO test{};
        test.pt = at;
        ::SendMessageW(window, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
        if ((test.flags & TVHT_ONITEMBUTTON) != 0)
            return {at.x - 3, at.y};
    }
    throw std::runtime_error("the item has no button");
}

bool isItemInView(const ui::Tree& tree, ui::TreeItemId item) {
    const HWND window = windowFor(tree);
    const auto* const peer = dynamic_cast<const TreeWindow*>(windowOf(tree));
    const HTREEITEM native = peer != nullptr ? peer->nativeItem(item) : nullptr;
    const auto place = native != nullptr ? textRect(window, native) : std::nullopt;
    RECT client{};
    ::GetClientRect(window, &client);
    return place && place->top >= 0 && place->bottom <= client.bottom;
}

std::vector<std::u16string> itemsOf(const ui::Tree& tree) {
    const HWND window = windowFor(tree);
    const auto next = [window](WPARAM relation, HTREEITEM item) {
        return reinterpret_cast<HTREEITEM>(
            ::SendMessageW(window, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    };
    const std::vector<std::u16string> keys = pictureKeys(tree);
    std::vector<std::u16string> lines;
    for (HTREEITEM item = next(TVGN_ROOT, nullptr); item != nullptr; item = next(TVGN_NEXTVISIBLE, item)) {
        std::u16string indent;
        for (HTREEITEM above = next(TVGN_PARENT, item); above != nullptr; above = next(TVGN_PARENT, above))
            indent += u"  ";
        lines.push_back(indent.append(describe(window, item, tree.images().get(), keys)));
    }
    return lines;
}

POINT pointInTab(const ui::TabStrip& strip, std::size_t index) {
    const HWND window = windowFor(strip);
    if (index >= strip.tabs().size() || !strip.tabs()[index].visible)
        throw std::runtime_error("there is no such tab");
    WPARAM place = 0;
    for (std::size_t i = 0; i < index; ++i)
        place += strip.tabs()[i].visible ? 1 : 0;
    RECT tab{};
    if (::SendMessageW(window, TCM_GETITEMRECT, place, reinterpret_cast<LPARAM>(&tab)) == FALSE)
        throw std::runtime_error("there is no such native tab");
    return {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};
}

std::vector<std::u16string> tabsOf(HWND strip) {
    std::vector<std::u16string> captions;
    const LRESULT count = ::SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0);
    const LRESULT selected = ::SendMessageW(strip, TCM_GETCURSEL, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        std::array<wchar_t, kLongText> text{};
        TCITEMW tab{};
        tab.mask = TCIF_TEXT;
        tab.pszText = text.data();
        tab.cchTextMax = kLongText;
        ::SendMessageW(strip, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tab));
        std::u16string& caption = captions.emplace_back(i == selected ? u"*" : u"");
        caption += ui::withoutAccessKey(narrowView(tab.pszText));
    }
    return captions;
}

}  // namespace quorel::win32::testing

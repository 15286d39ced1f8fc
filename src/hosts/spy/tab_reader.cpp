#include "hosts/spy/tab_reader.h"

#include <commctrl.h>

#include <algorithm>

#include "hosts/spy/remote_memory.h"

namespace quorel::spy {

namespace {

constexpr std::size_t kLongestTab = 512;

[[nodiscard]] std::wstring withoutDoubling(std::wstring caption) {
    for (std::size_t at = 0; (at = caption.find(L"&&", at)) != std::wstring::npos; ++at)
        caption.erase(at, 1);
    return caption;
}

}  // namespace

std::vector<std::wstring> TabReader::captions() const {
    std::vector<std::wstring> found;
    const RemoteMemory memory(tabs_, sizeof(TCITEMW) + kLongestTab * sizeof(wchar_t));
    const LRESULT count = SendMessageW(tabs_, TCM_GETITEMCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = reinterpret_cast<wchar_t*>(memory.address() + sizeof(TCITEMW));
        item.cchTextMax = static_cast<int>(kLongestTab);
        memory.write(0, &item, sizeof item);
        SendMessageW(tabs_, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(memory.address()));
        found.push_back(withoutDoubling(memory.text(sizeof(TCITEMW), kLongestTab)));
    }
    return found;
}

int TabReader::selected() const {
    return static_cast<int>(SendMessageW(tabs_, TCM_GETCURSEL, 0, 0));
}

std::optional<POINT> TabReader::middleOf(const std::wstring& caption) const {
    const std::vector<std::wstring> all = captions();
    const auto at = std::find(all.begin(), all.end(), caption);
    const RemoteMemory memory(tabs_, sizeof(RECT));
    if (at == all.end() || SendMessageW(tabs_, TCM_GETITEMRECT, static_cast<WPARAM>(at - all.begin()),
                                        reinterpret_cast<LPARAM>(memory.address())) == FALSE)
        return std::nullopt;
    RECT bounds{};
    memory.read(0, &bounds, sizeof bounds);
    POINT middle{(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
    ClientToScreen(tabs_, &middle);
    return middle;
}

}  // namespace quorel::spy

#include "hosts/spy/list_reader.h"

#include <commctrl.h>

#include <algorithm>

#include "hosts/spy/remote_memory.h"

namespace quorel::spy {

namespace {

constexpr std::size_t kLongestCell = 1024;

int ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) {
    return static_cast<int>(SendMessageW(window, message, w, l));
}

// The message's structure in front, its text buffer behind it.
template <class Item>
std::wstring askText(HWND window, UINT message, int index, Item item, wchar_t*(Item::*text),
                     int(Item::*length)) {
    const RemoteMemory memory(window, sizeof(Item) + kLongestCell * sizeof(wchar_t));
    item.*text = reinterpret_cast<wchar_t*>(memory.address() + sizeof(Item));
    item.*length = static_cast<int>(kLongestCell);
    memory.write(0, &item, sizeof item);
    SendMessageW(window, message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(memory.address()));
    return memory.text(sizeof(Item), kLongestCell);
}

}  // namespace

int ListReader::rowCount() const {
    return ask(list_, LVM_GETITEMCOUNT);
}

int ListReader::firstVisibleRow() const {
    return ask(list_, LVM_GETTOPINDEX);
}

int ListReader::visibleRows() const {
    return std::min(ask(list_, LVM_GETCOUNTPERPAGE), rowCount() - firstVisibleRow());
}

int ListReader::selectedRow() const {
    return ask(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
}

std::vector<std::wstring> ListReader::columnTitles() const {
    const HWND header = reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETHEADER, 0, 0));
    std::vector<std::wstring> titles;
    for (int column = 0, count = ask(header, HDM_GETITEMCOUNT); column < count; ++column) {
        HDITEMW item{};
        item.mask = HDI_TEXT;
        titles.push_back(
            askText(header, HDM_GETITEMW, column, item, &HDITEMW::pszText, &HDITEMW::cchTextMax));
    }
    return titles;
}

std::wstring ListReader::cell(int row, int column) const {
    LVITEMW item{};
    item.iSubItem = column;
    return askText(list_, LVM_GETITEMTEXTW, row, item, &LVITEMW::pszText, &LVITEMW::cchTextMax);
}

std::optional<POINT> ListReader::middleOf(int row) const {
    if (row < firstVisibleRow() || row >= firstVisibleRow() + visibleRows())
        return std::nullopt;
    const RemoteMemory memory(list_, sizeof(RECT));
    RECT bounds{};
    bounds.left = LVIR_LABEL;
    memory.write(0, &bounds, sizeof bounds);
    SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(memory.address()));
    memory.read(0, &bounds, sizeof bounds);
    RECT client{};
    GetClientRect(list_, &client);
    POINT middle{(bounds.left + std::min(bounds.right, client.right)) / 2, (bounds.top + bounds.bottom) / 2};
    ClientToScreen(list_, &middle);
    return middle;
}

std::optional<int> ListReader::visibleRowOf(const std::wstring& text) const {
    for (int row = firstVisibleRow(), end = row + visibleRows(); row < end; ++row)
        if (cell(row, 0) == text)
            return row;
    return std::nullopt;
}

}  // namespace quorel::spy

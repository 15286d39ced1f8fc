// quorelspy: reads the windows of the library from outside, as UI test tools do.

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Complete only behind the system's.
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "hosts/spy/list_reader.h"
#include "hosts/spy/remote_memory.h"
#include "hosts/spy/tab_reader.h"
#include "hosts/spy/tree_reader.h"
#include "hosts/spy/windows_tree.h"

namespace {

using namespace quorel::spy;

constexpr int kNotThere = 3;
constexpr int kMisused = 2;

const wchar_t* const kUsage =
    L"usage: quorelspy FORM COMMAND\n"
    L"  FORM                      the form's native class, e.g. frmSixPane\n"
    L"  wait [SECONDS]            until the form is on the screen (10 seconds at most)\n"
    L"  gone [SECONDS]            until it is not\n"
    L"  close                     asks the form to close, as its close box does\n"
    L"  tree                      every control: name, class, rectangle, text\n"
    L"  rows CONTROL [MOST]       a list's count, headers and the rows in view, at most MOST; * marks the "
    L"selected\n"
    L"  items CONTROL [MOST]      the items that a tree shows, at most MOST: - open, + closed, * selected\n"
    L"  tabs CONTROL              a strip's tabs; * marks the selected\n"
    L"  panels CONTROL            the texts of a status line's panels\n"
    L"  where                     the form's middle, in screen pixels: x y\n"
    L"  where CONTROL             the control's middle\n"
    L"  where CONTROL ROW         the middle of the row in view whose first cell is ROW\n"
    L"  where CONTROL ITEM        the middle of a tree's item, by the texts from the top: PEOPLE/ADA; // is "
    L"a "
    L"slash\n"
    L"  where CONTROL ITEM button the middle of the button before it\n"
    L"  where CONTROL TAB         the middle of a strip's tab\n"
    L"  focus                     the name of the control that has the keyboard\n"
    L"  text CONTROL              what stands in the control\n"
    L"  checked CONTROL           whether the box is ticked, by exit code\n"
    L"exit code: 0, 1 not ticked, 2 misused, 3 no such form, control, row, item or tab\n";

std::string utf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                           bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(std::max(length, 0)));
    return bytes;
}

void print(const std::wstring& text) {
    const std::string bytes = utf8(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

int waitFor(const std::wstring& form, bool wanted, const std::vector<std::wstring>& words) {
    constexpr DWORD kStep = 50;
    const DWORD limit = (words.empty() ? 10 : std::stoul(words[0])) * 1000;
    for (DWORD waited = 0; waited <= limit; waited += kStep) {
        if ((findForm(form) != nullptr) == wanted)
            return 0;
        Sleep(kStep);
    }
    return kNotThere;
}

int printTree(HWND form) {
    print(windowClass(form) + L" \"" + windowText(form) + L"\"\n");
    for (const Found& found : descendants(form)) {
        RECT bounds{};
        GetWindowRect(found.window, &bounds);
        std::wstring line(static_cast<std::size_t>(found.depth) * 2, L' ');
        line +=
            controlName(found.window) + L" [" + windowClass(found.window) + L"] " +
            std::to_wstring(bounds.left) + L"," + std::to_wstring(bounds.top) + L" " +
            std::to_wstring(bounds.right - bounds.left) + L"x" + std::to_wstring(bounds.bottom - bounds.top) +
            (IsWindowVisible(found.window) ? L"" : L" hidden") + L" \"" + windowText(found.window) + L"\"\n";
        print(line);
    }
    return 0;
}

int printRows(HWND control, const std::vector<std::wstring>& words) {
    const ListReader list(control);
    const std::vector<std::wstring> titles = list.columnTitles();
    print(std::to_wstring(list.rowCount()) + L" rows\n ");
    for (const std::wstring& title : titles)
        print(L"\t" + title);
    print(L"\n");
    const int most = words.size() > 1 ? std::stoi(words[1]) : list.visibleRows();
    const int first = list.firstVisibleRow();
    for (int row = first; row < first + std::min(most, list.visibleRows()); ++row) {
        print(row == list.selectedRow() ? L"*" : L" ");
        for (int column = 0; column < static_cast<int>(titles.size()); ++column)
            print(L"\t" + list.cell(row, column));
        print(L"\n");
    }
    return 0;
}

int printItems(HWND control, const std::vector<std::wstring>& words) {
    constexpr int kMany = 1000;
    for (const TreeLine& line : TreeReader(control).lines(words.size() > 1 ? std::stoi(words[1]) : kMany)) {
        print(line.selected ? L"*" : L" ");
        print(std::wstring(static_cast<std::size_t>(line.depth) * 2, L' '));
        print(line.open ? L"- " : line.canOpen ? L"+ " : L"  ");
        print(line.text + L"\n");
    }
    return 0;
}

int printTabs(HWND control) {
    const TabReader tabs(control);
    const std::vector<std::wstring> captions = tabs.captions();
    for (std::size_t i = 0; i < captions.size(); ++i)
        print((static_cast<int>(i) == tabs.selected() ? L"*" : L" ") + captions[i] + L"\n");
    return 0;
}

int printPanels(HWND control) {
    constexpr std::size_t kLongestText = 1024;
    const RemoteMemory memory(control, kLongestText * sizeof(wchar_t));
    const LRESULT count = SendMessageW(control, SB_GETPARTS, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT length = LOWORD(SendMessageW(control, SB_GETTEXTLENGTHW, static_cast<WPARAM>(i), 0));
        if (length >= static_cast<LRESULT>(kLongestText))
            return 1;
        SendMessageW(control, SB_GETTEXTW, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(memory.address()));
        print(memory.text(0, kLongestText) + L"\n");
    }
    return 0;
}

std::optional<POINT> placeInTree(HWND window, const std::wstring& path, bool button) {
    const TreeReader tree(window);
    const std::optional<TreeLine> line = tree.find(path);
    if (!line)
        return std::nullopt;
    return button ? tree.buttonOf(*line) : tree.middleOf(*line);
}

/// Of what the words name in a control: a row, an item, a tab.
std::optional<POINT> placeIn(HWND window, const std::vector<std::wstring>& words) {
    const std::wstring kind = windowClass(window);
    if (kind == L"SysTreeView32")
        return placeInTree(window, words[1], words.size() > 2 && words[2] == L"button");
    if (kind == L"SysTabControl32")
        return TabReader(window).middleOf(words[1]);
    const ListReader list(window);
    const std::optional<int> row = list.visibleRowOf(words[1]);
    return row ? list.middleOf(*row) : std::nullopt;
}

int printMiddle(HWND window, const std::vector<std::wstring>& words) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    const POINT middle{(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
    const std::optional<POINT> place = words.size() > 1 ? placeIn(window, words) : middle;
    if (!place)
        return kNotThere;
    print(std::to_wstring(place->x) + L" " + std::to_wstring(place->y) + L"\n");
    return 0;
}

int printFocus(HWND form) {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof(thread);
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &thread) || thread.hwndFocus == nullptr)
        return kNotThere;
    print(controlName(thread.hwndFocus) + L"\n");
    return 0;
}

int run(const std::wstring& formName, const std::wstring& command, const std::vector<std::wstring>& words) {
    if (command == L"wait" || command == L"gone")
        return waitFor(formName, command == L"wait", words);
    const HWND form = findForm(formName);
    if (form == nullptr)
        return kNotThere;
    if (command == L"close")
        return PostMessageW(form, WM_CLOSE, 0, 0) != FALSE ? 0 : 1;
    if (command == L"tree")
        return printTree(form);
    if (command == L"focus")
        return printFocus(form);
    HWND control = form;
    if (!words.empty())
        control = findControl(form, words[0]);
    if (control == nullptr)
        return kNotThere;
    if (command == L"rows" && !words.empty())
        return printRows(control, words);
    if (command == L"checked")
        return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? 0 : 1;
    if (command == L"text") {
        print(windowText(control) + L"\n");
        return 0;
    }
    if (command == L"where")
        return printMiddle(control, words);
    if (command == L"items" && !words.empty())
        return printItems(control, words);
    if (command == L"tabs" && !words.empty())
        return printTabs(control);
    if (command == L"panels" && !words.empty())
        return printPanels(control);
    throw std::invalid_argument("unknown command");
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    _setmode(_fileno(stdout), _O_BINARY);
    try {
        const std::vector<std::wstring> words(argv + 1, argv + argc);
        if (words.size() < 2)
            throw std::invalid_argument("too few words");
        return run(words[0], words[1], {words.begin() + 2, words.end()});
    } catch (const std::invalid_argument&) {
        std::fwprintf(stderr, L"%ls", kUsage);
        return kMisused;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorelspy: %s\n", error.what());
        return 1;
    }
}

// The native list: what it asks, shows and survives.

#include "platform/win32/ui/system_headers.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace ui::literals;
using Lists = GalleryTest;

namespace {

[[nodiscard]] std::size_t visibleCells(HWND list, std::size_t columns) {
    RECT client{}, row{};
    ::GetClientRect(list, &client);
    row.left = LVIR_BOUNDS;
    ::SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    return static_cast<std::size_t>((client.bottom - row.top) / (row.bottom - row.top) + 1) * columns;
}

}  // namespace

TEST_F(Lists, AskOnlyForTheCellsTheyPaint) {
    const HWND list = window(*gallery->list);
    gallery->rows.asked = 0;
    ::RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    const std::size_t visible = visibleCells(list, 3);
    EXPECT_GE(gallery->rows.asked, 30U);
    EXPECT_LE(static_cast<double>(gallery->rows.asked), 1.25 * static_cast<double>(visible));
}

TEST_F(Lists, PrepareTheRowsThatTheyWillAskFor) {
    class Prepared final : public ui::RowSource {
      public:
        [[nodiscard]] std::size_t rowCount() const override { return 1000; }
        [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t) override {
            unprepared += row < first || row > last;
            return u"x";
        }
        void prepareRows(std::size_t from, std::size_t to) override {
            first = from;
            last = to;
            ++calls;
        }
        std::size_t first = 1, last = 0;
        int calls = 0, unprepared = 0;
    };
    Prepared rows;
    gallery->list->setSource(&rows);
    pump();
    ::UpdateWindow(window(*gallery->list));
    gallery->list->selectRow(700);
    pump();
    EXPECT_GE(rows.calls, 2);
    EXPECT_LE(rows.first, 700U);
    EXPECT_GE(rows.last, 700U);
    EXPECT_EQ(rows.unprepared, 0);
    gallery->list->setSource(nullptr);
}

TEST_F(Lists, ShowNoMoreRowsThanTheSystemTakes) {
    NumberedRows many(5'000'000'000);
    gallery->list->setSource(&many);
    pump();
    EXPECT_EQ(::SendMessageW(window(*gallery->list), LVM_GETITEMCOUNT, 0, 0),
              static_cast<LRESULT>(ui::VirtualList::kMostRows));
    EXPECT_EQ(gallery->list->rowCount(), ui::VirtualList::kMostRows);
    gallery->list->selectRow(ui::VirtualList::kMostRows - 1);
    pump();
    EXPECT_EQ(cellOf(window(*gallery->list), ui::VirtualList::kMostRows - 1, 0), u"Package 99999999");
    gallery->list->setSource(nullptr);
}

TEST_F(Lists, HeadersCarryTheSortArrow) {
    const auto arrow = [this](int column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        const auto header =
            reinterpret_cast<HWND>(::SendMessageW(window(*gallery->list), LVM_GETHEADER, 0, 0));
        ::SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
        return item.fmt & (HDF_SORTUP | HDF_SORTDOWN);
    };
    EXPECT_EQ(arrow(0), HDF_SORTUP);
    EXPECT_EQ(arrow(1), 0);
    auto columns = gallery->list->columns();
    columns[0].sort = ui::SortOrder::None;
    columns[1].sort = ui::SortOrder::Descending;
    gallery->list->setColumns(columns);
    EXPECT_EQ(arrow(0), 0);
    EXPECT_EQ(arrow(1), HDF_SORTDOWN);
}

TEST_F(Lists, AHandlerMayRefillTheListInsideItsSelection) {
    NumberedRows few(5);
    gallery->list->onSelect.connect([&] { gallery->list->setSource(&few); });
    click(window(*gallery->list), pointInRow(window(*gallery->list), 10));
    EXPECT_EQ(gallery->list->selectedRow(), std::nullopt);
    EXPECT_EQ(::SendMessageW(window(*gallery->list), LVM_GETITEMCOUNT, 0, 0), 5);
    EXPECT_EQ(::SendMessageW(window(*gallery->list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED),
              -1);
    gallery->list->setSource(nullptr);
}

TEST_F(Lists, TheRightButtonSelectsTheRowFirst) {
    const HWND list = window(*gallery->list);
    const POINT at = pointInRow(list, 6);
    std::optional<std::size_t> selectedThen;
    gallery->list->contextMenu().find(u"mnuCopy")->setVisible(false);
    gallery->list->onContextMenu.connect([&] { selectedThen = gallery->list->selectedRow(); });
    ::PostMessageW(list, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(at.x, at.y));
    ::PostMessageW(list, WM_RBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    pump();
    EXPECT_EQ(selectedThen, 6U);
}

TEST_F(Lists, TheSelectedRowCanBeSeenWithoutTheFocus) {
    const HWND list = window(*gallery->list);
    EXPECT_NE(::GetFocus(), list);
    const HDC screen = ::GetDC(list);
    const HDC memory = ::CreateCompatibleDC(screen);
    RECT client{};
    ::GetClientRect(list, &client);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, client.right, client.bottom);
    const HGDIOBJ before = ::SelectObject(memory, bitmap);
    ::SendMessageW(list, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT | PRF_ERASEBKGND);
    const auto groundOf = [&](int number) {  // above the text of its last visible column
        RECT row{};
        row.left = LVIR_BOUNDS;
        ::SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(&row));
        return ::GetPixel(memory, client.right - 4, row.top + 1);
    };
    const COLORREF shade = groundOf(3), ground = groundOf(4);
    ::SelectObject(memory, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(list, screen);
    EXPECT_EQ(ground, RGB(235, 235, 255));
    EXPECT_NE(shade, ground);
    EXPECT_GT(GetBValue(shade) - GetRValue(shade), GetBValue(ground) - GetRValue(ground));
}

}  // namespace quorel::win32::testing

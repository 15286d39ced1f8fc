// Work in slices that post one another.

#include <functional>
#include <vector>

#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using Tasks = GalleryTest;

TEST_F(Tasks, WindowsArePaintedBetweenTasksThatPostOneAnother) {
    constexpr int kSlices = 8;
    int left = kSlices;
    int painted = 0;
    std::function<void()> slice = [&] {
        painted += ::GetUpdateRect(form(), nullptr, FALSE) == FALSE ? 1 : 0;
        ::InvalidateRect(form(), nullptr, FALSE);
        if (--left > 0)
            desktop->post(slice);
    };
    desktop->post(slice);
    MSG message{};
    while (left > 0 && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    EXPECT_EQ(painted, kSlices);
}

TEST_F(Tasks, TasksThatATaskPostsRunInTheirOrder) {
    std::vector<int> order;
    desktop->post([&] {
        ::InvalidateRect(form(), nullptr, FALSE);
        for (int i = 0; i < 5; ++i)
            desktop->post([&order, i] { order.push_back(i); });
    });
    MSG message{};
    while (order.size() < 5 && ::GetMessageW(&message, nullptr, 0, 0) > 0)
        ::DispatchMessageW(&message);
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
}

}  // namespace quorel::win32::testing

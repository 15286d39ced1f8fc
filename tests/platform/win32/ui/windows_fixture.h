#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>

#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/live_counts.h"
#include "platform/win32/ui/windows_desktop.h"
#include "tests/platform/win32/ui/gallery_form.h"
#include "tests/platform/win32/ui/native_user.h"

namespace quorel::win32::testing {

/// A desktop of its own for each test; at its end nothing that was made may be left and nothing may have
/// escaped.
class WindowsTest : public ::testing::Test {
  protected:
    void TearDown() override {
        pump();
        desktop.reset();
        EXPECT_EQ(liveCounts(), before_);
        EXPECT_EQ(strayExceptions(), strayBefore_ + expectedStrays);
    }

    const LiveCounts before_ = liveCounts();
    const std::int64_t strayBefore_ = strayExceptions();
    std::int64_t expectedStrays = 0;
    std::unique_ptr<WindowsDesktop> desktop = std::make_unique<WindowsDesktop>(::GetModuleHandleW(nullptr));
};

/// The same with the gallery shown.
class GalleryTest : public WindowsTest {
  protected:
    void SetUp() override {
        gallery->form->show(ui::Modality::Modeless);
        pump();
    }
    void TearDown() override {
        gallery.reset();
        WindowsTest::TearDown();
    }
    [[nodiscard]] HWND window(const ui::Control& control) const { return windowFor(control); }
    [[nodiscard]] HWND form() const { return windowFor(*gallery->form); }

    std::unique_ptr<Gallery> gallery = std::make_unique<Gallery>(*desktop);
};

/// Posts a message that a window of the test's own hands to `run`, in whatever loop takes it.
class Errand {
  public:
    explicit Errand(std::function<void()> run);
    ~Errand();
    Errand(const Errand&) = delete;
    Errand& operator=(const Errand&) = delete;
    [[nodiscard]] bool isDone() const noexcept { return done_; }

  private:
    static LRESULT CALLBACK serve(HWND window, UINT message, WPARAM w, LPARAM l);
    std::function<void()> run_;
    HWND window_;
    bool done_ = false;
};

}  // namespace quorel::win32::testing

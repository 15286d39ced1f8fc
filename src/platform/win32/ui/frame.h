#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/ui/units.h"
#include "platform/win32/ui/services.h"

namespace quorel::win32 {

/// What the windows of one form share, the form's own among them.
class Frame {
  public:
    explicit Frame(std::shared_ptr<Services> shared);
    ~Frame();
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    [[nodiscard]] Services& services() noexcept { return *services_; }
    [[nodiscard]] ThreadState& thread() noexcept { return *thread_; }

    /// The form's window; null before it is made and after it is gone.
    [[nodiscard]] HWND form() const noexcept { return form_; }
    void setForm(HWND form) noexcept { form_ = form; }

    [[nodiscard]] std::int32_t dpi() const noexcept { return dpi_; }
    void setDpi(std::int32_t dpi);
    [[nodiscard]] HFONT font() const noexcept { return font_; }

    /// Around every procedure of the form's windows. Windows that are to go meanwhile are hidden and go when
    /// the outermost procedure has returned, for the system's controls do not bear to be destroyed while they
    /// report.
    void enter() noexcept;
    void leave() noexcept;
    void destroy(HWND window) noexcept;

    /// Between these, `place` collects, so that a whole layout moves in one step.
    void beginLayout() noexcept { ++layouts_; }
    void endLayout() noexcept;
    void place(HWND window, const ui::PixelRect& where) noexcept;

    /// The text that a control's window shows when the mouse rests on it; empty for none.
    void setToolTip(HWND control, const std::u16string& text);
    void forgetToolTip(HWND control) noexcept;

  private:
    struct Move {
        HWND window;
        ui::PixelRect where;
    };
    void makeToolTips();

    std::shared_ptr<Services> services_;
    std::shared_ptr<ThreadState> thread_;
    HWND form_ = nullptr;
    HWND toolTips_ = nullptr;
    HFONT font_ = nullptr;
    std::int32_t dpi_ = 96;
    int serving_ = 0;
    int layouts_ = 0;
    std::vector<HWND> retired_;
    std::vector<Move> moves_;
};

/// Holds `enter` and `leave` together and the frame alive.
class Serving {
  public:
    explicit Serving(std::shared_ptr<Frame> frame) noexcept : frame_(std::move(frame)) { frame_->enter(); }
    ~Serving() { frame_->leave(); }
    Serving(const Serving&) = delete;
    Serving& operator=(const Serving&) = delete;

  private:
    std::shared_ptr<Frame> frame_;
};

/// Holds `beginLayout` and `endLayout` together and the frame alive.
class Layout {
  public:
    explicit Layout(std::shared_ptr<Frame> frame) noexcept : frame_(std::move(frame)) {
        frame_->beginLayout();
    }
    ~Layout() { frame_->endLayout(); }
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

  private:
    std::shared_ptr<Frame> frame_;
};

}  // namespace quorel::win32

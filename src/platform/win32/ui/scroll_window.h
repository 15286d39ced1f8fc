#pragma once

#include <optional>

#include "platform/ui/scroll_panel.h"
#include "platform/win32/ui/native_window.h"

namespace quorel::win32 {

/// A child with an upright scroll bar while its content is higher than it; what it holds is moved.
class ScrollWindow : public NativeWindow {
  public:
    ScrollWindow(std::shared_ptr<Frame> frame, ui::ScrollPanel& panel)
        : NativeWindow(std::move(frame), panel) {}
    void rescaled() override;

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    void mirrorBar() const;
    void moveContent();
    void scroll(WORD request);
    [[nodiscard]] bool turnWheel(short delta);
    [[nodiscard]] ui::ScrollPanel& panel() const noexcept {
        return static_cast<ui::ScrollPanel&>(*control());
    }

    std::optional<ui::Twips> shownAt_;  ///< how far the children's windows are scrolled
    int wheel_ = 0;                     ///< turned, but not yet by a line
};

}  // namespace quorel::win32

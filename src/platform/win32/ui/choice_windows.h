#pragma once

// The windows of the combo box and the progress bar.

#include "platform/ui/combo_box.h"
#include "platform/ui/progress_bar.h"
#include "platform/win32/ui/native_window.h"

namespace quorel::win32 {

/// The system's combo box. What the user chooses while its list is open counts when the list closes, unless
/// by Esc.
class ComboWindow : public NativeWindow {
  public:
    ComboWindow(std::shared_ptr<Frame> frame, ui::ComboBox& box) : NativeWindow(std::move(frame), box) {}
    void commanded(WORD code) override;
    void takeFocus() override;
    void rescaled() override;

  private:
    [[nodiscard]] Description describe() override;
    [[nodiscard]] ui::PixelRect place() const override;
    void mirror(ui::Change changes) override;
    void mirrorText() override;
    [[nodiscard]] bool claimsKey(ui::KeyChord chord) const override;
    [[nodiscard]] bool dropsKey(ui::KeyChord chord) const override;
    void mirrorItems();
    void mirrorSelection();
    void matchHeight();
    void reportChoice();
    void reportText();
    [[nodiscard]] bool isDropped() const noexcept;
    [[nodiscard]] ui::ComboBox& box() const noexcept { return static_cast<ui::ComboBox&>(*control()); }

    bool mirroring_ = false;
    bool cancelled_ = false;
};

class ProgressWindow : public NativeWindow {
  public:
    ProgressWindow(std::shared_ptr<Frame> frame, ui::ProgressBar& bar)
        : NativeWindow(std::move(frame), bar) {}

  private:
    [[nodiscard]] Description describe() override;
    void opened() override;
    void mirror(ui::Change changes) override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    [[nodiscard]] ui::ProgressBar& bar() const noexcept { return static_cast<ui::ProgressBar&>(*control()); }

    static constexpr ULONGLONG kPaintPause = 33;  // milliseconds
    ULONGLONG painted_ = 0;
    bool stale_ = false;
};

}  // namespace quorel::win32

#pragma once

// The windows of the controls that only show: panel, label, picture box, status bar.

#include "platform/ui/plain_controls.h"
#include "platform/win32/ui/native_window.h"
#include "platform/win32/ui/pictures.h"

namespace quorel::win32 {

/// A child that fills its background and holds other windows.
class PanelWindow : public NativeWindow {
  public:
    PanelWindow(std::shared_ptr<Frame> frame, ui::Panel& panel) : NativeWindow(std::move(frame), panel) {}

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
};

class LabelWindow : public NativeWindow {
  public:
    LabelWindow(std::shared_ptr<Frame> frame, ui::Label& label) : NativeWindow(std::move(frame), label) {}

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    [[nodiscard]] HFONT font() const override;
    [[nodiscard]] ui::Label& label() const noexcept { return static_cast<ui::Label&>(*control()); }
};

/// Paints one line at its edge over its background.
class LineWindow : public NativeWindow {
  public:
    LineWindow(std::shared_ptr<Frame> frame, ui::Line& line) : NativeWindow(std::move(frame), line) {}

  private:
    [[nodiscard]] Description describe() override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    void paint() const;
    [[nodiscard]] ui::Line& line() const noexcept { return static_cast<ui::Line&>(*control()); }
};

/// Paints its picture in the middle, in natural size, over its background.
class PictureWindow : public NativeWindow {
  public:
    PictureWindow(std::shared_ptr<Frame> frame, ui::PictureBox& box) : NativeWindow(std::move(frame), box) {}
    void rescaled() override;

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    void mirrorPicture();
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    void paint() const;
    void paintOn(HDC dc, const RECT& client) const;
    [[nodiscard]] ui::PictureBox& box() const noexcept { return static_cast<ui::PictureBox&>(*control()); }

    CountedBitmap bitmap_;
    SIZE size_{};
    bool pressed_ = false;
};

class StatusWindow : public NativeWindow {
  public:
    StatusWindow(std::shared_ptr<Frame> frame, ui::StatusBar& bar) : NativeWindow(std::move(frame), bar) {}
    void rescaled() override;

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    void mirrorText() override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    void mirrorParts();
    void mirrorPanels();
    [[nodiscard]] ui::StatusBar& bar() const noexcept { return static_cast<ui::StatusBar&>(*control()); }

    std::vector<std::optional<std::u16string>> shown_;
    bool stale_ = false;
};

}  // namespace quorel::win32

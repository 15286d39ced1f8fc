#pragma once

// The windows of the controls that take input: text box, button, check box, splitter.

#include "platform/ui/check_box.h"
#include "platform/ui/plain_controls.h"
#include "platform/win32/ui/native_window.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

/// The system begins a line at the top of the box, so the client area of a box of one line is as high as the
/// line and in the middle; what is above and below it is painted like the box.
class TextWindow : public NativeWindow {
  public:
    TextWindow(std::shared_ptr<Frame> frame, ui::TextBox& box) : NativeWindow(std::move(frame), box) {}
    void commanded(WORD code) override;
    void takeFocus() override;
    [[nodiscard]] HBRUSH colours(HDC dc) override;

  private:
    [[nodiscard]] Description describe() override;
    void opened() override;
    void mirror(ui::Change changes) override;
    void mirrorText() override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    [[nodiscard]] bool dropsKey(ui::KeyChord chord) const override;
    void centreLine(RECT& client) const;
    void paintAroundLine();
    [[nodiscard]] LRESULT serveLine(UINT message, WPARAM w, LPARAM l);
    [[nodiscard]] ui::TextBox& box() const noexcept { return static_cast<ui::TextBox&>(*control()); }

    bool settingText_ = false;
};

class ButtonWindow : public NativeWindow {
  public:
    ButtonWindow(std::shared_ptr<Frame> frame, ui::Button& button) : NativeWindow(std::move(frame), button) {}
    void commanded(WORD code) override;
    [[nodiscard]] std::optional<LRESULT> notified(NMHDR& header) override;
    void rescaled() override;

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    void mirrorPicture();
    void drawPicture(const NMCUSTOMDRAW& drawing) const;
    void showDefault(bool isDefault) const;
    void restoreDefault() const;
    [[nodiscard]] ui::Button& button() const noexcept { return static_cast<ui::Button&>(*control()); }

    CountedIcon icon_;
    CountedBitmap usable_;
    CountedBitmap dimmed_;
    SIZE size_{};
};

class CheckWindow : public NativeWindow {
  public:
    CheckWindow(std::shared_ptr<Frame> frame, ui::CheckBox& box) : NativeWindow(std::move(frame), box) {}
    void commanded(WORD code) override;

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    [[nodiscard]] ui::PixelRect place() const override;
    [[nodiscard]] ui::CheckBox& box() const noexcept { return static_cast<ui::CheckBox&>(*control()); }
};

class SplitterWindow : public NativeWindow {
  public:
    SplitterWindow(std::shared_ptr<Frame> frame, ui::Splitter& splitter)
        : NativeWindow(std::move(frame), splitter) {}

  private:
    [[nodiscard]] Description describe() override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    /// Esc takes a drag back, whatever the form does with it otherwise.
    [[nodiscard]] bool claimsKey(ui::KeyChord chord) const override {
        return dragging_ && chord.key == ui::Key::Escape;
    }
    void beginDrag(LPARAM at);
    void drag(LPARAM at);
    void endDrag(bool takeBack);
    [[nodiscard]] bool step(WPARAM key);
    void paint() const;
    [[nodiscard]] bool isVertical() const noexcept {
        return splitter().orientation() == ui::Orientation::Vertical;
    }
    [[nodiscard]] ui::Twips position() const noexcept;
    [[nodiscard]] ui::Splitter& splitter() const noexcept { return static_cast<ui::Splitter&>(*control()); }

    bool dragging_ = false;
    LONG grip_ = 0;  ///< where the mouse holds the bar, in pixels from its left or top
    ui::Twips dragStart_;
};

}  // namespace quorel::win32

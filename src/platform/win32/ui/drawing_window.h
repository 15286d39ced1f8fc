#pragma once

#include "platform/ui/drawing_area.h"
#include "platform/win32/ui/native_window.h"
#include "platform/win32/ui/surface_canvas.h"

namespace quorel::win32 {

/// The window of what the program draws.
class DrawingWindow : public NativeWindow {
  public:
    DrawingWindow(std::shared_ptr<Frame> frame, ui::DrawingArea& area)
        : NativeWindow(std::move(frame), area), tools_(services().tools) {}
    void invalidate(const ui::Rect& area) override;
    void rescaled() override;

  private:
    [[nodiscard]] Description describe() override;
    [[nodiscard]] bool takesWheel() const override {
        return control() != nullptr && area().onWheel.isConnected();
    }
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    [[nodiscard]] bool serveMouse(UINT message, WPARAM w, LPARAM l);
    void press(ui::MouseButton button, bool twice, WPARAM keys, LPARAM at);
    void release(ui::MouseButton button, WPARAM keys, LPARAM at);
    void move(WPARAM keys, LPARAM at);
    void lose();
    [[nodiscard]] bool turnWheel(WPARAM w, LPARAM onScreen);
    void mirror(ui::Change changes) override;
    [[nodiscard]] bool showsShape(LPARAM hit) const;
    void showShape() const;
    void paintOn(HDC dc, const RECT& dirty);
    [[nodiscard]] ui::Point pointAt(POINT pixel) const noexcept;
    [[nodiscard]] ui::DrawingArea& area() const noexcept { return static_cast<ui::DrawingArea&>(*control()); }

    /// Draws what is dirty and answers where.
    [[nodiscard]] std::shared_ptr<const DrawingSurface> draw(const RECT& dirty);

    CanvasTools tools_;
    std::shared_ptr<DrawingSurface> surface_;  ///< as large as the window was at its largest
    ui::MouseButton held_ = ui::MouseButton::None;
    bool tracked_ = false;  ///< the system tells when the mouse leaves
};

}  // namespace quorel::win32

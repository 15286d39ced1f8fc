#pragma once

#include <windows.h>

#include "platform/ui/drawing_export.h"
#include "platform/win32/ui/windows_desktop.h"

namespace quorel::win32 {

class DrawingTools;

/// Files by the system's own encoder and metafiles, paper by its print dialog. Files need no screen.
class WindowsDrawingExport final : public ui::DrawingExport {
  public:
    /// The desktop must outlive it.
    explicit WindowsDrawingExport(WindowsDesktop& desktop) : desktop_(desktop) {}

    double writePng(std::u16string_view path, ui::Size drawing, std::int32_t dpi,
                    const Painter& painter) override;
    void writeEmf(std::u16string_view path, ui::Size drawing, const Painter& painter) override;
    [[nodiscard]] bool print(std::u16string_view title, ui::Size drawing, const Painter& painter,
                             ui::Form* owner) override;

  private:
    WindowsDesktop& desktop_;
};

/// Draws on a page of that device, in its middle. Throws what the painter throws.
void drawOnPage(HDC device, ui::Size drawing, const ui::DrawingExport::Painter& painter, DrawingTools& tools);

}  // namespace quorel::win32

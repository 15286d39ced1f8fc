#pragma once

#include <optional>
#include <vector>

#include "platform/ui/tab_strip.h"
#include "platform/win32/ui/native_window.h"

namespace quorel::win32 {

/// The system's tab control, with the visible tabs alone. The pages are its children.
class TabWindow : public NativeWindow {
  public:
    TabWindow(std::shared_ptr<Frame> frame, ui::TabStrip& strip) : NativeWindow(std::move(frame), strip) {}
    [[nodiscard]] std::optional<LRESULT> notified(NMHDR& header) override;

  private:
    [[nodiscard]] Description describe() override;
    void mirror(ui::Change changes) override;
    void mirrorText() override {}
    void mirrorTabs();
    void mirrorSelection() const;
    [[nodiscard]] ui::TabStrip& strip() const noexcept { return static_cast<ui::TabStrip&>(*control()); }

    std::vector<std::size_t> shown_;  ///< the native tabs' indices in the strip
};

/// Of a tab control in that font, which is one for that resolution.
[[nodiscard]] ui::Borders measuredTabBorders(HINSTANCE module, HFONT font, std::int32_t dpi);

}  // namespace quorel::win32

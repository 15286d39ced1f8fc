#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/ui/tab_strip.h"

namespace quorel::controls {

/// Tabs over pages that fill the area below them. Which pages belong to which tab, and which is seen, is its
/// owner's affair.
class IndexTab : public ui::TabStrip {
  public:
    using TabStrip::TabStrip;

    /// A page, invisible until its owner shows it, and always as large as the area for pages.
    ui::Panel& addPage(std::u16string_view name);
    /// That area: `clientBounds`, measured when the control was last given another size.
    [[nodiscard]] const ui::Rect& pageArea();
    void hideTabs();
    /// Makes the tab visible under that caption; there are as many tabs as were ever shown.
    void showTab(std::size_t index, std::u16string_view caption);

  private:
    void boundsChanged() override;

    std::vector<ui::Panel*> pages_;
    std::optional<ui::Rect> area_;
};

}  // namespace quorel::controls

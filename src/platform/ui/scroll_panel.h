#pragma once

#include <string_view>

#include "platform/ui/control.h"

namespace quorel::ui {

/// A panel that may hold more than it is high. What it holds is placed as if it were as high as its content;
/// it scrolls by its bar, by the wheel and, until it can be seen, to whatever in it gets the focus.
class ScrollPanel : public Container {
  public:
    explicit ScrollPanel(std::u16string_view name) : Container(name) { setTabStop(false); }
    void accept(ControlVisitor& visitor) override;

    /// How high it is all in all. The bar is there while that is more than the panel's own height.
    [[nodiscard]] Twips contentHeight() const noexcept { return contentHeight_; }
    void setContentHeight(Twips height);
    [[nodiscard]] bool scrolls() const noexcept { return contentHeight_ > bounds().height; }
    /// The width inside, beside the bar if there is one.
    [[nodiscard]] Twips innerWidth() noexcept;

    [[nodiscard]] Twips scrolled() const noexcept override { return scrolled_; }
    /// As far as it goes.
    void scrollTo(Twips top);

    /// The user has scrolled, as far as it goes.
    void userScrolled(Twips top);

  private:
    void boundsChanged() override { scrollTo(scrolled_); }
    void reveal(const Control& below) override;
    [[nodiscard]] Twips limited(Twips top) const noexcept;

    Twips contentHeight_;
    Twips scrolled_;
};

}  // namespace quorel::ui

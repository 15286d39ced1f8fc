#include "platform/ui/scroll_panel.h"

#include <algorithm>

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"

namespace quorel::ui {

namespace {
constexpr Twips kMargin{60};
}

void ScrollPanel::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void ScrollPanel::setContentHeight(Twips height) {
    if (contentHeight_ == height)
        return;
    contentHeight_ = height;
    scrolled_ = limited(scrolled_);
    changed(Change::ScrollTo);
}

Twips ScrollPanel::innerWidth() noexcept {
    const Form* const holder = form();
    const Twips bar = scrolls() && holder != nullptr ? holder->desktop().scrollBarWidth() : Twips{};
    return std::max(Twips{}, bounds().width - bar);
}

Twips ScrollPanel::limited(Twips top) const noexcept {
    return std::clamp(top, Twips{}, std::max(Twips{}, contentHeight_ - bounds().height));
}

void ScrollPanel::scrollTo(Twips top) {
    const Twips wanted = limited(top);
    if (wanted == scrolled_)
        return;
    scrolled_ = wanted;
    changed(Change::ScrollTo);
}

void ScrollPanel::userScrolled(Twips top) {
    scrollTo(top);
}

/// Its upper edge, when not all of it can be seen.
void ScrollPanel::reveal(const Control& below) {
    Twips top = below.bounds().top;
    for (const Container* above = below.parent(); above != this; above = above->parent())
        top += above->bounds().top - above->scrolled();
    const Twips bottom = top + below.bounds().height;
    const Twips least = bottom + kMargin - bounds().height;
    scrollTo(std::min(top - kMargin, std::max(scrolled_, least)));
}

}  // namespace quorel::ui

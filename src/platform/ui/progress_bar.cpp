#include "platform/ui/progress_bar.h"

#include <algorithm>

#include "platform/ui/control_visitor.h"

namespace quorel::ui {

void ProgressBar::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void ProgressBar::set(std::int32_t& number, std::int32_t to) {
    if (number == to)
        return;
    number = to;
    changed(Change::Items);
}

double ProgressBar::filled() const noexcept {
    if (maximum_ <= minimum_)
        return 0;
    const double from = minimum_, to = maximum_;
    return (std::clamp<double>(value_, from, to) - from) / (to - from);
}

}  // namespace quorel::ui

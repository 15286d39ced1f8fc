#include "diagram/box_search.h"

#include "diagram/box_finder.h"
#include "platform/automation/text.h"

namespace quorel::diagram {

void BoxSearch::look(const DiagramModel& model, std::u16string_view text) {
    found_ = boxesWith(model, text);
    at_ = 0;
    hasText_ = !text.empty();
}

void BoxSearch::clear() noexcept {
    found_.clear();
    at_ = 0;
    hasText_ = false;
}

std::optional<std::size_t> BoxSearch::present() const noexcept {
    return found_.empty() ? std::nullopt : std::optional(found_[at_]);
}

void BoxSearch::goOn() noexcept {
    if (!found_.empty())
        at_ = (at_ + 1) % found_.size();
}

void BoxSearch::goBack() noexcept {
    if (!found_.empty())
        at_ = (at_ + found_.size() - 1) % found_.size();
}

std::u16string BoxSearch::told() const {
    if (!hasText_)
        return {};
    if (found_.empty())
        return u"Not found";
    return automation::decimal(static_cast<std::int64_t>(at_ + 1)) + u" of " +
           automation::decimal(static_cast<std::int64_t>(found_.size()));
}

}  // namespace quorel::diagram

#include "platform/ui/tab_strip.h"

#include <algorithm>

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"

namespace quorel::ui {

void TabStrip::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

std::size_t TabStrip::addTab(std::u16string_view caption, std::u16string_view key) {
    tabs_.push_back({std::u16string(caption), std::u16string(key)});
    repairSelection();
    changed(Change::Items | Change::Selection);
    return tabs_.size() - 1;
}

void TabStrip::setTabs(std::vector<Tab> tabs) {
    tabs_ = std::move(tabs);
    selected_.reset();
    repairSelection();
    changed(Change::Items | Change::Selection);
}

void TabStrip::setCaption(std::size_t index, std::u16string_view caption) {
    if (index >= tabs_.size() || tabs_[index].caption == caption)
        return;
    tabs_[index].caption = caption;
    changed(Change::Items | Change::Selection);
}

void TabStrip::setKey(std::size_t index, std::u16string_view key) {
    if (index < tabs_.size())
        tabs_[index].key = key;
}

void TabStrip::setTabVisible(std::size_t index, bool visible) {
    if (index >= tabs_.size() || tabs_[index].visible == visible)
        return;
    tabs_[index].visible = visible;
    repairSelection();
    changed(Change::Items | Change::Selection);
}

std::optional<std::size_t> TabStrip::indexOf(std::u16string_view key) const noexcept {
    const auto found = std::find_if(tabs_.begin(), tabs_.end(), [key](const Tab& t) { return t.key == key; });
    return found != tabs_.end() ? std::optional(static_cast<std::size_t>(found - tabs_.begin()))
                                : std::nullopt;
}

void TabStrip::select(std::size_t index) {
    if (!isThere(index) || selected_ == index)
        return;
    selected_ = index;
    changed(Change::Selection);
}

std::optional<std::size_t> TabStrip::nextVisible(std::size_t from, bool toTheRight) const noexcept {
    for (std::size_t i = from; toTheRight ? ++i < tabs_.size() : i-- > 0;)
        if (tabs_[i].visible)
            return i;
    return std::nullopt;
}

std::optional<std::size_t> TabStrip::neighbour(bool toTheRight) const noexcept {
    return selected_ ? nextVisible(*selected_, toTheRight) : std::nullopt;
}

void TabStrip::repairSelection() {
    if (selected_ && isThere(*selected_))
        return;
    const std::size_t from = selected_.value_or(0);
    selected_ = isThere(from) ? std::optional(from) : nextVisible(from, true);
    if (!selected_)
        selected_ = nextVisible(std::min(from, tabs_.size()), false);
}

Rect TabStrip::clientBounds() noexcept {
    const Form* const holder = form();
    return tabClient(bounds().size(), holder != nullptr ? holder->desktop().tabBorders() : Borders{});
}

Size TabStrip::sizeAround(Size page) noexcept {
    const Form* const holder = form();
    const Borders borders = holder != nullptr ? holder->desktop().tabBorders() : Borders{};
    return {page.width + borders.left + borders.right, page.height + borders.top + borders.bottom};
}

void TabStrip::userSelected(std::size_t index) {
    if (!isThere(index) || !selected_ || selected_ == index)
        return;
    const auto alive = keepFormAlive();
    const std::size_t former = *selected_;
    selected_ = index;
    onSelect.raise(former, index);
}

Rect tabClient(Size strip, const Borders& borders) noexcept {
    return {borders.left, borders.top, std::max(Twips{}, strip.width - borders.left - borders.right),
            std::max(Twips{}, strip.height - borders.top - borders.bottom)};
}

}  // namespace quorel::ui

#include "platform/controls/property_lines.h"

#include <algorithm>

#include "platform/automation/text.h"

namespace quorel::controls {

void PropertyLines::setSearch(std::u16string_view text) {
    search_ = automation::foldCase(text);
}

void PropertyLines::toggle(const std::u16string& category) {
    if (folded_.erase(category) == 0)
        folded_.insert(category);
}

bool PropertyLines::matches(PropertyItem& item) const {
    const auto contains = [this](const std::u16string& text) {
        return automation::foldCase(text).find(search_) != std::u16string::npos;
    };
    return contains(item.name()) || contains(item.description());
}

void PropertyLines::arrange(const PropertyModel& model) {
    const std::vector<PropertyModel::Item> items = model.items();
    const bool categories = model.hasCategories();
    std::vector<std::u16string> order;
    std::vector<Line> shown;
    for (const PropertyModel::Item& item : items) {
        if (isSearching() && !matches(*item))
            continue;
        const std::u16string category = categories ? item->category() : std::u16string();
        if (std::find(order.begin(), order.end(), category) == order.end())
            order.push_back(category);
        shown.push_back({item, category});
    }
    if (!categories) {
        lines_ = std::move(shown);
        return;
    }
    std::stable_partition(order.begin(), order.end(), [](const auto& category) { return !category.empty(); });
    std::vector<Line> arranged;
    for (const std::u16string& category : order) {
        const std::u16string heading = category.empty() ? u"Other" : category;
        arranged.push_back({{}, heading});
        if (isFolded(heading))
            continue;
        for (const Line& line : shown)
            if (line.category == category)
                arranged.push_back({line.item, heading});
    }
    lines_ = std::move(arranged);
}

std::optional<std::size_t> PropertyLines::lineOf(const PropertyModel::Item& item) const noexcept {
    const auto found =
        std::find_if(lines_.begin(), lines_.end(), [&item](const Line& line) { return line.item == item; });
    if (!item || found == lines_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - lines_.begin());
}

}  // namespace quorel::controls

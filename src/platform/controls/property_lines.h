#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/controls/property_model.h"

namespace quorel::controls {

/// Which lines a property grid shows: the properties that the search lets through, under their categories
/// when there are any. Categories come in the order of their first property; properties without one come
/// last, under "Other".
class PropertyLines {
  public:
    struct Line {
        PropertyModel::Item item;  ///< empty for the heading of a category
        std::u16string category;
    };

    /// Shows the model's items anew. A search asks every property for its name and description; throws what
    /// they throw.
    void arrange(const PropertyModel& model);
    /// Texts that a name or a description must contain, whatever the case of its letters; "" ends the search.
    void setSearch(std::u16string_view text);
    [[nodiscard]] bool isSearching() const noexcept { return !search_.empty(); }
    /// Folds the category away, or unfolds it. A search unfolds all.
    void toggle(const std::u16string& category);
    [[nodiscard]] bool isFolded(const std::u16string& category) const {
        return !isSearching() && folded_.contains(category);
    }

    [[nodiscard]] std::size_t size() const noexcept { return lines_.size(); }
    [[nodiscard]] const Line& operator[](std::size_t line) const noexcept { return lines_[line]; }
    [[nodiscard]] std::optional<std::size_t> lineOf(const PropertyModel::Item& item) const noexcept;
    void clear() { lines_.clear(); }

  private:
    [[nodiscard]] bool matches(PropertyItem& item) const;

    std::vector<Line> lines_;
    std::set<std::u16string> folded_;
    std::u16string search_;  // folded case
};

}  // namespace quorel::controls

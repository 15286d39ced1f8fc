#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"
#include "platform/ui/desktop.h"

namespace quorel::ui {

/// A row of tabs over an area for pages. The pages are controls of the owner's, added to the strip like to
/// any container and placed in `clientBounds`; which of them is seen the owner decides when a tab is
/// selected.
///
/// An invisible tab is not there for the user. While any tab is visible one of them is selected: the first
/// that becomes visible, and a neighbour of the selected one when that goes.
class TabStrip : public Container {
  public:
    struct Tab {
        std::u16string caption;  ///< shown as it stands; a `&` marks no access key
        std::u16string key{};
        bool visible = true;
    };

    explicit TabStrip(std::u16string_view name) : Container(name) {}
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] const std::vector<Tab>& tabs() const noexcept { return tabs_; }
    /// Answers the index of the new tab, the last.
    std::size_t addTab(std::u16string_view caption, std::u16string_view key = {});
    /// Selects the first visible one.
    void setTabs(std::vector<Tab> tabs);
    void setCaption(std::size_t index, std::u16string_view caption);
    void setKey(std::size_t index, std::u16string_view key);
    void setTabVisible(std::size_t index, bool visible);
    /// The first tab with that very key.
    [[nodiscard]] std::optional<std::size_t> indexOf(std::u16string_view key) const noexcept;

    /// None only while no tab is visible.
    [[nodiscard]] std::optional<std::size_t> selected() const noexcept { return selected_; }
    /// Raises nothing; nothing happens for a tab that is invisible or not there.
    void select(std::size_t index);

    /// Where pages go, in the strip's own coordinates, and the size of a strip around pages of that size.
    [[nodiscard]] Rect clientBounds() noexcept;
    [[nodiscard]] Size sizeAround(Size page) noexcept;

    /// The user selected another tab, by mouse or key: the former one and the one selected now.
    Event<std::size_t, std::size_t> onSelect;

    void userSelected(std::size_t index);
    /// The next visible tab to the right or the left of the selected one; none at the end.
    [[nodiscard]] std::optional<std::size_t> neighbour(bool toTheRight) const noexcept;

  private:
    [[nodiscard]] bool isThere(std::size_t index) const noexcept {
        return index < tabs_.size() && tabs_[index].visible;
    }
    [[nodiscard]] std::optional<std::size_t> nextVisible(std::size_t from, bool toTheRight) const noexcept;
    void repairSelection();

    std::vector<Tab> tabs_;
    std::optional<std::size_t> selected_;
};

/// The area for pages in a strip of that size, whose own borders are those; never less than empty.
[[nodiscard]] Rect tabClient(Size strip, const Borders& borders) noexcept;

}  // namespace quorel::ui

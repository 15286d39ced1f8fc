#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"

namespace quorel::ui {

enum class ComboStyle : bool { List, Editable };

/// A line with a list that drops down. Of a `List` the text is always the chosen item's, or empty; an
/// `Editable` one takes any text, and its index is that of an item chosen or of the first with that very
/// text.
class ComboBox : public Control {
  public:
    explicit ComboBox(std::u16string_view name, ComboStyle style = ComboStyle::List)
        : Control(name), style_(style) {}
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] bool isEditable() const noexcept { return style_ == ComboStyle::Editable; }
    [[nodiscard]] const std::vector<std::u16string>& items() const noexcept { return items_; }
    /// Chooses nothing; an editable box keeps its text.
    void setItems(std::vector<std::u16string> items);
    void addItem(std::u16string_view item);

    [[nodiscard]] std::optional<std::size_t> listIndex() const noexcept { return index_; }
    /// Also sets the text: to the item's, or to nothing. An index of no item is none.
    void setListIndex(std::optional<std::size_t> index);

    Event<> onClick;   ///< the user has chosen another item, by mouse or key
    Event<> onChange;  ///< the user has typed into an editable box

    void userChose(std::size_t index);
    void userTyped(std::u16string_view newText);

  private:
    void textSet() override;
    [[nodiscard]] std::optional<std::size_t> indexOfText() const noexcept;

    ComboStyle style_;
    std::vector<std::u16string> items_;
    std::optional<std::size_t> index_;
};

}  // namespace quorel::ui

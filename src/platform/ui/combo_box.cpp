#include "platform/ui/combo_box.h"

#include <algorithm>
#include <utility>

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"

namespace quorel::ui {

void ComboBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

std::optional<std::size_t> ComboBox::indexOfText() const noexcept {
    const auto found = std::find(items_.begin(), items_.end(), text_);
    return found != items_.end() ? std::optional(static_cast<std::size_t>(found - items_.begin()))
                                 : std::nullopt;
}

void ComboBox::setItems(std::vector<std::u16string> items) {
    items_ = std::move(items);
    index_.reset();
    if (!isEditable())
        text_.clear();
    changed(Change::Items | Change::Selection | Change::Text);
}

void ComboBox::addItem(std::u16string_view item) {
    items_.emplace_back(item);
    changed(Change::Items | Change::Selection | Change::Text);
}

void ComboBox::setListIndex(std::optional<std::size_t> index) {
    index_ = index && *index < items_.size() ? index : std::nullopt;
    text_ = index_ ? items_[*index_] : std::u16string();
    changed(Change::Selection | Change::Text);
}

void ComboBox::textSet() {
    index_ = indexOfText();
    if (!index_ && !isEditable())
        text_.clear();
    changed(Change::Selection);
}

void ComboBox::userChose(std::size_t index) {
    if (index >= items_.size() || index_ == index)
        return;
    const auto alive = keepFormAlive();
    index_ = index;
    text_ = items_[index];
    onClick.raise();
}

void ComboBox::userTyped(std::u16string_view newText) {
    if (!isEditable() || text_ == newText)
        return;
    const auto alive = keepFormAlive();
    text_ = newText;
    index_ = indexOfText();
    onChange.raise();
}

}  // namespace quorel::ui

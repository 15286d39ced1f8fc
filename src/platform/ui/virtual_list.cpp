#include "platform/ui/virtual_list.h"

#include <algorithm>

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"

namespace quorel::ui {

void VirtualList::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void VirtualList::setSource(RowSource* source) {
    source_ = source;
    selected_.reset();
    rowsChanged();
}

void VirtualList::rowsChanged() {
    rowCount_ = source_ != nullptr ? std::min(source_->rowCount(), kMostRows) : 0;
    if (selected_ && *selected_ >= rowCount_)
        selected_.reset();
    changed(Change::Items | Change::Selection);
}

std::u16string VirtualList::cellText(std::size_t row, std::size_t column) const {
    if (source_ == nullptr || row >= rowCount_ || column >= columns_.size())
        return {};
    const auto alive = keepFormAlive();
    return source_->cellText(row, column);
}

void VirtualList::prepareRows(std::size_t first, std::size_t last) const {
    if (source_ == nullptr || first > last || last >= rowCount_)
        return;
    const auto alive = keepFormAlive();
    source_->prepareRows(first, last);
}

void VirtualList::setColumns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    changed(Change::Columns);
}

void VirtualList::selectRow(std::optional<std::size_t> row) {
    selected_ = row && *row < rowCount_ ? row : std::nullopt;
    changed(Change::Selection | Change::ScrollTo);
}

void VirtualList::userSelected(std::optional<std::size_t> row) {
    const auto alive = keepFormAlive();
    const bool wasSelected = selected_.has_value();
    selected_ = row && *row < rowCount_ ? row : std::nullopt;
    if (selected_)
        onSelect.raise();
    else if (wasSelected)
        onDeselect.raise();
}

void VirtualList::userActivated() {
    const auto alive = keepFormAlive();
    if (selected_)
        onActivate.raise();
}

void VirtualList::userClickedColumn(std::size_t column) {
    const auto alive = keepFormAlive();
    if (column < columns_.size())
        onColumnClick.raise(column);
}

void VirtualList::userResizedColumn(std::size_t column, Twips width) {
    if (column >= columns_.size() || columns_[column].width == width)
        return;
    const auto alive = keepFormAlive();
    columns_[column].width = width;
    onColumnResize.raise(column);
}

std::optional<std::size_t> VirtualList::userFinds(const std::u16string& text, std::size_t start) {
    const auto alive = keepFormAlive();
    std::optional<std::size_t> found;
    onFind.raise(text, start, found);
    return found && *found < rowCount_ ? found : std::nullopt;
}

}  // namespace quorel::ui

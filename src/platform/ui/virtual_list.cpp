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

std::u16string VirtualList::cellToolTip(CellIndex cell) const {
    if (source_ == nullptr || cell.row >= rowCount_ || cell.column >= columns_.size())
        return {};
    const auto alive = keepFormAlive();
    return source_->cellToolTip(cell.row, cell.column);
}

CellLook VirtualList::cellLook(CellIndex cell) const {
    if (source_ == nullptr || cell.row >= rowCount_ || cell.column >= columns_.size())
        return {};
    const auto alive = keepFormAlive();
    return source_->cellLook(cell.row, cell.column);
}

std::optional<std::size_t> VirtualList::rowPicture(std::size_t row) const {
    if (source_ == nullptr || row >= rowCount_ || !images())
        return std::nullopt;
    const auto alive = keepFormAlive();
    const auto images = this->images();
    const std::u16string key = source_->rowPicture(row);
    return key.empty() ? std::nullopt : images->placeOf(key);
}

void VirtualList::setImages(std::shared_ptr<ImageList> images) {
    images_.set(std::move(images));
    changed(Change::Images);
}

void VirtualList::setCheckBoxes(bool checkBoxes) {
    checkBoxes_ = checkBoxes;
    changed(Change::Style);
}

void VirtualList::setTitled(bool titled) {
    titled_ = titled;
    changed(Change::Style);
}

bool VirtualList::isChecked(std::size_t row) const {
    if (source_ == nullptr || row >= rowCount_ || !checkBoxes_)
        return false;
    const auto alive = keepFormAlive();
    return source_->isChecked(row);
}

bool VirtualList::isGroup(std::size_t row) const {
    if (source_ == nullptr || row >= rowCount_)
        return false;
    const auto alive = keepFormAlive();
    return source_->isGroup(row);
}

void VirtualList::prepareRows(std::size_t first, std::size_t last) const {
    if (source_ == nullptr || first > last || last >= rowCount_)
        return;
    const auto alive = keepFormAlive();
    source_->prepareRows(first, last);
}

void VirtualList::setColumns(std::vector<Column> columns) {
    if (columns == columns_)
        return;
    columns_ = std::move(columns);
    changed(Change::Columns);
}

void VirtualList::selectRow(std::optional<std::size_t> row) {
    selected_ = row && *row < rowCount_ ? row : std::nullopt;
    target_.reset();
    changed(Change::Selection | Change::ScrollTo);
}

void VirtualList::ensureVisible(std::size_t row) {
    target_ = ScrollTarget{row};
    changed(Change::ScrollTo);
}

void VirtualList::ensureVisible(CellIndex cell) {
    target_ = ScrollTarget{cell.row, cell.column};
    changed(Change::ScrollTo);
}

std::optional<VirtualList::ScrollTarget> VirtualList::scrollTarget() const noexcept {
    if (target_ && target_->row < rowCount_)
        return target_;
    return selected_ ? std::optional(ScrollTarget{*selected_}) : std::nullopt;
}

std::optional<Rect> VirtualList::cellBounds(CellIndex cell) const {
    if (peer() == nullptr || !isShown() || cell.row >= rowCount_ || cell.column >= columns_.size())
        return std::nullopt;
    std::optional<Rect> place = peer()->cellBounds(cell);
    if (place) {
        place->left += bounds().left;
        place->top += bounds().top;
    }
    return place;
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
    onCellsMoved.raise();
}

void VirtualList::userClickedCell(CellIndex cell) {
    const auto alive = keepFormAlive();
    if (cell.row < rowCount_ && cell.column < columns_.size())
        onCellClick.raise(cell);
}

void VirtualList::userClickedBox(std::size_t row) {
    const auto alive = keepFormAlive();
    if (checkBoxes_ && row < rowCount_)
        onCheck.raise(row);
}

void VirtualList::userMovedCells() {
    const auto alive = keepFormAlive();
    onCellsMoved.raise();
}

std::optional<std::size_t> VirtualList::userFinds(const std::u16string& text, std::size_t start) {
    const auto alive = keepFormAlive();
    std::optional<std::size_t> found;
    onFind.raise(text, start, found);
    return found && *found < rowCount_ ? found : std::nullopt;
}

}  // namespace quorel::ui

#include "platform/controls/list_view.h"

#include <algorithm>

#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/control_parts.h"
#include "platform/controls/list_view_layout.h"
#include "platform/controls/list_view_overtaken.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

namespace {

using automation::Object;

constexpr ui::Twips kNameWidth{2400};
constexpr ui::Twips kOtherWidth{1500};

}  // namespace

ListView::ListView(std::u16string_view name, ui::Desktop& desktop)
    : Panel(suffixed(name, u".View")),
      desktop_(desktop),
      filterBox_(&add<ui::TextBox>(suffixed(name, u".Filter"))),
      shownLabel_(&add<ui::Label>(suffixed(name, u".Shown"))),
      list_(&add<ui::VirtualList>(name)) {
    filterBox_->setVisible(false);
    filterBox_->setCueText(u"Filter");
    shownLabel_->setVisible(false);
    list_->setSource(this);
    list_->onSelect.connect([this] {
        onSelectionChanged.raise();
        onClick.raise();
    });
    list_->onDeselect.connect([this] { onSelectionChanged.raise(); });
    list_->onActivate.connect([this] { onDoubleClick.raise(); });
    list_->onColumnClick.connect([this](std::size_t column) { clickedColumn(column); });
    list_->onColumnResize.connect(
        [this](std::size_t column) { userWidths_[columns_.title(column)] = list_->columns()[column].width; });
    list_->onCheck.connect([this](std::size_t viewRow) { toggleCheck(viewRow); });
    list_->onFind.connect([this](const std::u16string& text, std::size_t start,
                                 std::optional<std::size_t>& found) { find(text, start, found); });
    list_->onKeyDown.connect([this](ui::KeyEvent& event) { keyInList(event); });
    filterBox_->onKeyDown.connect([this](ui::KeyEvent& event) { keyInFilter(event); });
    filterBox_->onChange.connect([this] { filterChanged(); });
    buildMenu();
}

ListView::~ListView() {
    list_->setSource(nullptr);
}

void ListView::addObject(const Object& added) {
    if (!added)
        throw automation::Error(automation::error_number::kObjectNotSet);
    const auto alive = keepFormAlive();
    const Object object = added;
    const Overtaken overtaken(*this);
    std::size_t position = view_.isSorted() ? sortedPosition(object) : view_.count();
    bool shown = !view_.isFiltered() || matches(object, filter_);
    if (overtaken) {
        position = view_.count();
        shown = !view_.isFiltered();
    }
    const std::optional<std::size_t> selected = selectedRow();
    ++arrangement_;
    rows_.push(Object(object));
    view_.add(position, shown);
    showRows(selected);
    onCountChanged.raise();
}

void ListView::removeObject(const Object& object) {
    const auto alive = keepFormAlive();
    const std::optional<std::size_t> row = rowOf(object);
    if (!row)
        return;
    std::optional<std::size_t> selected = selectedRow();
    if (selected == row)
        selected.reset();
    else if (selected && *selected > *row)
        --*selected;
    ++generation_;
    view_.remove(*row);
    rows_.remove(*row);
    showRows(selected);
    onCountChanged.raise();
}

void ListView::dropRows() {
    ++generation_;
    cellErrorReported_ = false;
    view_.reset(0);
    filter_.clear();
    filterBox_->setText(u"");
    const RowStore gone = std::move(rows_);
    showRows(std::nullopt);
}

void ListView::refreshObject(const Object& object) {
    const auto alive = keepFormAlive();
    const std::optional<std::size_t> row = rowOf(object);
    const std::optional<std::size_t> viewRow = row ? view_.viewRowOf(*row) : std::nullopt;
    if (!viewRow)
        return;
    cache_.forget(*viewRow);
    list_->rowsChanged();
}

void ListView::endSorting() {
    sortOrder_ = ui::SortOrder::None;
    sortColumn_ = 0;
    view_.clearOrder();
}

void ListView::dropColumns() {
    ++generation_;
    endSorting();
    columns_.clear();
    setFilterColumn(0);
    showColumns();
    showRows(selectedRow());
}

void ListView::clearRows() {
    const auto alive = keepFormAlive();
    dropRows();
    onCountChanged.raise();
}

void ListView::resetColumns() {
    const auto alive = keepFormAlive();
    dropColumns();
}

void ListView::empty() {
    const auto alive = keepFormAlive();
    dropRows();
    dropColumns();
    onCountChanged.raise();
}

std::optional<std::size_t> ListView::selectedRow() const {
    const std::optional<std::size_t> viewRow = list_->selectedRow();
    return viewRow && *viewRow < view_.size() ? std::optional(view_.rowAt(*viewRow)) : std::nullopt;
}

Object ListView::selectedObject() const {
    const std::optional<std::size_t> row = selectedRow();
    return row ? rows_[*row] : Object();
}

std::optional<std::size_t> ListView::rowOf(const Object& object) const {
    if (!object)
        return std::nullopt;
    const std::size_t row = rows_.find(object);
    return row < rows_.size() ? std::optional(row) : rowWithKeyOf(object);
}

std::optional<std::size_t> ListView::rowWithKeyOf(const Object& object) const {
    if (rows_.size() == 0)
        return std::nullopt;
    const Overtaken overtaken(*this);
    const std::u16string key = columns_.keyOf(object);
    for (std::size_t row = 0; !key.empty() && !overtaken && row < rows_.size(); ++row) {
        try {
            const Object candidate = rows_[row];
            if (columns_.keyOf(candidate) == key)
                return overtaken ? std::nullopt : std::optional(row);
        } catch (const automation::Error&) {
            continue;  // a row that cannot tell its key is none that was meant
        }
    }
    return std::nullopt;
}

void ListView::setSelectedObject(const Object& object) {
    const auto alive = keepFormAlive();
    const std::optional<std::size_t> row = rowOf(object);
    if (row && !view_.viewRowOf(*row))
        closeFilter();
    list_->selectRow(row ? view_.viewRowOf(*row) : std::nullopt);
    onSelectionChanged.raise();
}

void ListView::setPaneColour(ui::Colour colour) {
    list_->setBackground(colour);
}

void ListView::showRows(std::optional<std::size_t> selected) {
    cache_.clear();
    list_->rowsChanged();
    list_->selectRow(selected ? view_.viewRowOf(*selected) : std::nullopt);
    if (shownLabel_->isVisible())
        tellShown();
    onSelectionChanged.raise();
}

void ListView::tellShown() {
    shownLabel_->setText(suffixed(automation::decimal(static_cast<std::int64_t>(shownCount())), u" of ") +
                         automation::decimal(static_cast<std::int64_t>(count())));
}

std::u16string ListView::cellText(std::size_t viewRow, std::size_t column) {
    if (viewRow >= view_.size() || column >= columns_.size())
        return {};
    if (const auto known = cache_.find(viewRow, column))
        return std::u16string(*known);
    const Overtaken overtaken(*this);
    const Object row = rows_[view_.rowAt(viewRow)];
    automation::Value cell;
    try {
        const void* typeKey = cache_.typeKey(viewRow);
        if (typeKey == nullptr) {
            typeKey = row.typeKey();
            if (!overtaken)
                cache_.storeTypeKey(viewRow, typeKey);
        }
        cell = columns_.read({row, typeKey}, column);
        makeDisplayText(cell);
    } catch (...) {
        cell = automation::Value(kUnreadableMark);
        if (!overtaken)
            cellFailed(automation::currentError());
    }
    std::u16string text(*cell.text());
    if (!overtaken)
        cache_.store(viewRow, column, std::move(cell));
    return text;
}

void ListView::prepareRows(std::size_t first, std::size_t last) {
    cache_.reserveRows(last - first + 1);
}

void ListView::cellFailed(const automation::Error& error) {
    if (std::exchange(cellErrorReported_, true))
        return;
    desktop_.post([this, error, generation = generation_, alive = std::weak_ptr(alive_)] {
        if (alive.expired())
            return;
        const auto form = keepFormAlive();
        if (generation == generation_)
            onCellError.raise(error);
    });
}

std::u16string ListView::textOf(const Object& object, std::size_t column) const {
    try {
        return valueText(columns_.read(automation::Typed(object), column));
    } catch (...) {
        return {};
    }
}

void ListView::boundsChanged() {
    placeChildren();
    if (columns_.size() == 1)
        showColumns();
}

void ListView::placeChildren() {
    const ListViewLayout layout = layoutListView(bounds().size(), filterBox_->isVisible());
    filterBox_->setBounds(layout.filterBox);
    shownLabel_->setBounds(layout.shownLabel);
    list_->setBounds(layout.list);
}

ui::Twips ListView::widthOf(std::size_t column) const {
    if (const auto known = userWidths_.find(columns_.title(column)); known != userWidths_.end())
        return known->second;
    if (columns_.width(column) > ui::Twips{0})
        return columns_.width(column);
    if (columns_.size() == 1)
        return std::max(bounds().width - kScrollBarRoom, kNameWidth);
    return column == 0 ? kNameWidth : kOtherWidth;
}

void ListView::addColumn(std::u16string_view caption, std::u16string_view key, ui::Twips width) {
    const auto alive = keepFormAlive();
    columns_.add(caption, key, width);
    cache_.clear();
    showColumns();
}

void ListView::addPropertyColumn(std::u16string_view caption, std::u16string_view key, LinkEnd end,
                                 ui::Twips width) {
    const auto alive = keepFormAlive();
    columns_.addEndProperty(caption, key, end, width);
    cache_.clear();
    showColumns();
}

void ListView::showColumns() {
    std::vector<ui::Column> shown;
    for (std::size_t column = 0; column < columns_.size(); ++column)
        shown.push_back({columns_.title(column), widthOf(column), ui::Alignment::Left,
                         column == sortColumn_ ? sortOrder_ : ui::SortOrder::None});
    list_->setColumns(std::move(shown));
}

}  // namespace quorel::controls

#include "platform/headless/user.h"

#include <algorithm>

#include "platform/automation/text.h"
#include "platform/ui/check_box.h"

namespace quorel::headless {

namespace {

[[nodiscard]] std::string called(const ui::Control& control) {
    return "'" + automation::toUtf8(control.name()) + "'";
}

void focusByClick(ui::Form& form, ui::Control& control) {
    if (control.isTabStop())
        form.userFocused(&control);
}

}  // namespace

void cannotFind(const ui::Container& container, std::u16string_view name) {
    throw CannotDo("there is no such control '" + automation::toUtf8(name) + "' in " + called(container));
}

std::shared_ptr<ui::Form> User::reach(ui::Control& control) const {
    ui::Form* const form = control.form();
    if (form == nullptr)
        throw CannotDo(called(control) + " is in no form");
    if (!control.isShown())
        throw CannotDo(called(control) + " is not visible");
    if (!control.isUsable())
        throw CannotDo(called(control) + " is disabled");
    if (control.peer() == nullptr)
        throw CannotDo(called(control) + " is visible but has no window");
    if (desktop_.isBlocked(*form))
        throw CannotDo(called(control) + " is behind a modal window");
    return form->shared_from_this();
}

void User::reachRow(const ui::VirtualList& list, std::size_t row) const {
    if (row >= list.rowCount())
        throw CannotDo(called(list) + " has no row " + std::to_string(row) + ", only " +
                       std::to_string(list.rowCount()));
}

void User::click(ui::Control& control) {
    const auto form = reach(control);
    focusByClick(*form, control);
    if (control.isUsable()) {
        if (auto* const button = dynamic_cast<ui::Button*>(&control))
            button->userClicked();
        else if (auto* const box = dynamic_cast<ui::CheckBox*>(&control))
            box->userToggled();
        else if (auto* const picture = dynamic_cast<ui::PictureBox*>(&control))
            picture->userClicked();
    }
    desktop_.runPosted();
}

void User::click(ui::Form& form, std::u16string_view control) {
    click(get<ui::Control>(form, control));
}

void User::moveSelection(ui::VirtualList& list, std::size_t row) {
    auto* const peer = dynamic_cast<HeadlessPeer*>(list.peer());
    if (peer != nullptr && peer->bringIntoView(row))
        list.userMovedCells();
    if (list.isUsable())
        list.userSelected(row);
}

void User::selectRow(ui::VirtualList& list, std::size_t row) {
    clickCell(list, {row, 0});
}

void User::clickCell(ui::VirtualList& list, ui::CellIndex cell) {
    const auto form = reach(list);
    reachRow(list, cell.row);
    focusByClick(*form, list);
    if (list.isUsable())
        moveSelection(list, cell.row);
    if (list.isUsable())
        list.userClickedCell(cell);
    desktop_.runPosted();
}

void User::scrollTo(ui::VirtualList& list, std::size_t topRow) {
    const auto form = reach(list);
    auto* const peer = dynamic_cast<HeadlessPeer*>(list.peer());
    if (peer != nullptr && peer->scrollTo(topRow))
        list.userMovedCells();
    desktop_.runPosted();
}

void User::doubleClickRow(ui::VirtualList& list, std::size_t row) {
    const auto form = reach(list);
    selectRow(list, row);
    if (list.isUsable())
        list.userActivated();
    desktop_.runPosted();
}

void User::clickBox(ui::VirtualList& list, std::size_t row) {
    const auto alive = reach(list);
    reachRow(list, row);
    if (!list.hasCheckBoxes())
        throw CannotDo("the list has no check boxes");
    list.focus();
    list.userClickedBox(row);
    desktop_.runPosted();
}

void User::clickBelowRows(ui::VirtualList& list) {
    const auto form = reach(list);
    focusByClick(*form, list);
    if (list.isUsable())
        list.userSelected(std::nullopt);
    desktop_.runPosted();
}

void User::clickColumn(ui::VirtualList& list, std::size_t column) {
    const auto form = reach(list);
    if (column >= list.columns().size())
        throw CannotDo(called(list) + " has no column " + std::to_string(column));
    list.userClickedColumn(column);
    desktop_.runPosted();
}

void User::resizeColumn(ui::VirtualList& list, std::size_t column, ui::Twips width) {
    const auto form = reach(list);
    if (column >= list.columns().size())
        throw CannotDo(called(list) + " has no column " + std::to_string(column));
    list.userResizedColumn(column, width);
    desktop_.runPosted();
}

void User::chooseFrom(ui::MenuItem& menu, std::u16string_view entry) const {
    ui::MenuItem* const item = menu.find(entry);
    if (item == nullptr)
        throw CannotDo("there is no menu entry '" + automation::toUtf8(entry) + "'");
    if (!item->isChoosable())
        throw CannotDo("the menu entry '" + automation::toUtf8(entry) + "' is hidden or disabled");
    item->userClicked();
}

void User::chooseContextMenu(ui::Control& control, std::u16string_view entry) {
    const auto form = reach(control);
    focusByClick(*form, control);
    ui::Menu* const menu = control.isUsable() ? control.userContextMenu() : nullptr;
    if (menu == nullptr)
        throw CannotDo(called(control) + " shows no context menu");
    chooseFrom(*menu, entry);
    desktop_.runPosted();
}

void User::chooseContextMenu(ui::VirtualList& list, std::size_t row, std::u16string_view entry) {
    const auto form = reach(list);
    reachRow(list, row);
    focusByClick(*form, list);
    if (list.isUsable() && list.selectedRow() != row)
        list.userSelected(row);
    if (list.isUsable())
        chooseContextMenu(list, entry);
}

void User::chooseMenu(ui::Form& form, std::u16string_view entry) {
    const auto alive = reach(form);
    if (form.menuBarIfAny() == nullptr)
        throw CannotDo(called(form) + " has no menu bar");
    chooseFrom(form.menuBar(), entry);
    desktop_.runPosted();
}

void User::closeBox(ui::Form& form) {
    const auto alive = reach(form);
    form.userClosed();
    desktop_.runPosted();
}

void User::resize(ui::Form& form, ui::Size clientSize) {
    const auto alive = reach(form);
    if (!form.isResizable())
        throw CannotDo(called(form) + " cannot be resized");
    const ui::Size least = form.minimumClientSize();
    form.userResized({std::max(clientSize.width, least.width), std::max(clientSize.height, least.height)});
    desktop_.runPosted();
}

void User::choose(ui::ComboBox& box, std::size_t index) {
    const auto form = reach(box);
    if (index >= box.items().size())
        throw CannotDo(called(box) + " has no item " + std::to_string(index));
    focusByClick(*form, box);
    if (box.isUsable())
        box.userChose(index);
    desktop_.runPosted();
}

void User::navigate(ui::Form& form, ui::Navigation where) {
    const auto alive = reach(form);
    form.userNavigated(where);
    desktop_.runPosted();
}

void User::drop(ui::Form& form, const std::vector<std::u16string>& files) {
    const auto alive = reach(form);
    if (!form.userDroppedFiles(files))
        throw CannotDo(called(form) + " takes no files");
    desktop_.runPosted();
}

void User::dragSplitter(ui::Splitter& splitter, ui::Twips position) {
    const auto form = reach(splitter);
    focusByClick(*form, splitter);
    splitter.userMoved(position);
    desktop_.runPosted();
}

std::vector<std::vector<std::u16string>> User::look(ui::VirtualList& list, std::size_t first,
                                                    std::size_t count) {
    const auto form = reach(list);
    std::vector<std::vector<std::u16string>> seen;
    const std::size_t end = std::min(first + count, list.rowCount());
    if (first < end)
        list.prepareRows(first, end - 1);
    for (std::size_t row = first; row < end; ++row) {
        std::vector<std::u16string>& cells = seen.emplace_back();
        for (std::size_t column = 0; column < list.columns().size(); ++column)
            cells.push_back(list.cellText(row, column));
    }
    desktop_.runPosted();
    return seen;
}

}  // namespace quorel::headless

#include "platform/controls/cell_text.h"
#include "platform/controls/control_parts.h"
#include "platform/controls/list_view.h"
#include "platform/controls/list_view_overtaken.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

namespace {

using automation::Object;
using ui::Key;
using ui::KeyChord;
using ui::Modifiers;

constexpr KeyChord kFilterKey{ui::key('F'), Modifiers::Control};

}  // namespace

void ListView::buildMenu() {
    ui::Menu& menu = list_->contextMenu();
    menu.add(u"Copy", u"&Copy", kCopyKey).onClick.connect([this] { copySelectedRow(); });
    menu.add(u"CopyAll", u"Copy &all rows").onClick.connect([this] { copyAllRows(); });
    menu.addSeparator();
    menu.add(u"Filter", u"&Filter\u2026", kFilterKey).onClick.connect([this] { openFilter(); });
    ui::MenuItem& sort = menu.add(u"Sort", u"&Sort");
    sort.add(u"SortAscending", u"&Ascending").onClick.connect([this] {
        sortBy(sortColumn_, ui::SortOrder::Ascending);
    });
    sort.add(u"SortDescending", u"&Descending").onClick.connect([this] {
        sortBy(sortColumn_, ui::SortOrder::Descending);
    });
    sort.add(u"SortNone", u"&Not sorted").onClick.connect([this] {
        sortBy(sortColumn_, ui::SortOrder::None);
    });
    menu.addSeparator();
    menu.add(u"CheckAll", u"Chec&k all", kCheckAll).onClick.connect([this] { checkAll(true); });
    menu.add(u"CheckNone", u"Check &none", kCheckNone).onClick.connect([this] { checkAll(false); });
    list_->onContextMenu.connect([this] { prepareMenu(); });
    prepareMenu();
}

void ListView::prepareMenu() {
    const ui::Menu& menu = list_->contextMenu();
    menu.find(u"Copy")->setEnabled(selectedRow().has_value());
    menu.find(u"CopyAll")->setEnabled(shownCount() > 0);
    for (const std::u16string_view entry : {u"CheckAll", u"CheckNone"}) {
        menu.find(entry)->setVisible(checks_ != nullptr);
        menu.find(entry)->setEnabled(shownCount() > 0);
    }
    menu.find(u"Sort")->setEnabled(columns_.size() > 0);
    menu.find(u"SortAscending")->setChecked(sortOrder_ == ui::SortOrder::Ascending);
    menu.find(u"SortDescending")->setChecked(sortOrder_ == ui::SortOrder::Descending);
    menu.find(u"SortNone")->setChecked(sortOrder_ == ui::SortOrder::None);
}

void ListView::keyInList(ui::KeyEvent& event) {
    event.handled = true;
    if (event.chord == kCopyKey)
        copySelectedRow();
    else if (event.chord == kFilterKey)
        openFilter();
    else if (event.chord == KeyChord{Key::Escape} && filterBox_->isVisible())
        closeFilter();
    else
        event.handled = keyForChecks(event.chord);
}

void ListView::keyInFilter(ui::KeyEvent& event) {
    event.handled = true;
    if (event.chord == KeyChord{Key::Escape})
        closeFilter();
    else if (event.chord == KeyChord{Key::Enter} || event.chord == KeyChord{Key::Down})
        list_->focus();
    else if (event.chord == kFilterKey)
        filterBox_->selectAll();
    else
        event.handled = false;
}

void ListView::openFilter() {
    if (!filterBox_->isVisible())
        setFilterColumn(sortColumn_);
    filterBox_->setVisible(true);
    shownLabel_->setVisible(true);
    tellShown();
    placeChildren();
    filterBox_->selectAll();
    filterBox_->focus();
}

void ListView::setFilterColumn(std::size_t column) {
    filterColumn_ = column;
    const bool exists = column < columns_.size();
    filterBox_->setCueText(exists ? u"Filter by " + columns_.title(column) : std::u16string(u"Filter"));
}

void ListView::closeFilter() {
    if (!filterBox_->isVisible())
        return;
    const auto alive = keepFormAlive();
    const std::optional<std::size_t> selected = selectedRow();
    ++arrangement_;
    filter_.clear();
    filterBox_->setText(u"");
    view_.clearFilter();
    if (filterBox_->hasFocus())
        list_->focus();
    filterBox_->setVisible(false);
    shownLabel_->setVisible(false);
    placeChildren();
    showRows(selected);
    onCountChanged.raise();
}

void ListView::copySelectedRow() {
    if (const std::optional<std::size_t> viewRow = list_->selectedRow())
        copyRows(*viewRow, *viewRow);
}

void ListView::copyAllRows() {
    if (shownCount() > 0)
        copyRows(0, shownCount() - 1);
}

void ListView::copyRows(std::size_t first, std::size_t last) {
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    const Overtaken overtaken(*this);
    std::u16string text;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        text += column == 0 ? u"" : u"\t";
        text += clipboardField(columns_.title(column));
    }
    text += u"\r\n";
    for (std::size_t viewRow = first; !overtaken && viewRow <= last; ++viewRow) {
        for (std::size_t column = 0; !overtaken && column < columns_.size(); ++column) {
            text += column == 0 ? u"" : u"\t";
            text += clipboardField(textOf(rows_[view_.rowAt(viewRow)], column));
        }
        text += u"\r\n";
    }
    if (!overtaken)
        desktop_.setClipboardText(text);
}

}  // namespace quorel::controls

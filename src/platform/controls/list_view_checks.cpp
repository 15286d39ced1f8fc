// The check boxes of a list.

#include "platform/controls/list_view.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"

namespace quorel::controls {

void ListView::setChecks(RowChecks* checks) {
    checks_ = checks;
    list_->setCheckBoxes(checks != nullptr);
    prepareMenu();
}

bool ListView::isChecked(std::size_t viewRow) {
    return checks_ != nullptr && viewRow < view_.size() && checks_->isChecked(rows_[view_.rowAt(viewRow)]);
}

void ListView::toggleCheck(std::size_t viewRow) {
    if (checks_ == nullptr || viewRow >= view_.size())
        return;
    const auto alive = keepFormAlive();
    const automation::Object row = rows_[view_.rowAt(viewRow)];
    checks_->setChecked(row, !checks_->isChecked(row));
    list_->rowsChanged();
    onCheck.raise();
}

void ListView::checkAll(bool checked) {
    if (checks_ == nullptr)
        return;
    const auto alive = keepFormAlive();
    for (std::size_t viewRow = 0; viewRow < view_.size(); ++viewRow)
        checks_->setChecked(rows_[view_.rowAt(viewRow)], checked);
    list_->rowsChanged();
    onCheck.raise();
}

bool ListView::keyForChecks(ui::KeyChord chord) {
    if (checks_ == nullptr)
        return false;
    const std::optional<std::size_t> selected = list_->selectedRow();
    if (chord == kCheckAll || chord == kCheckNone)
        checkAll(chord == kCheckAll);
    else if (chord == ui::KeyChord{ui::Key::Space} && selected)
        toggleCheck(*selected);
    else
        return false;
    return true;
}

automation::Object ListView::objectAt(std::size_t place) const {
    return place < view_.count() ? rows_[view_.unfilteredRowAt(place)] : automation::Object();
}

}  // namespace quorel::controls

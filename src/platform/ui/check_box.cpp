#include "platform/ui/check_box.h"

#include "platform/ui/control_visitor.h"
#include "platform/ui/form.h"

namespace quorel::ui {

void CheckBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void CheckBox::setValue(CheckValue value) {
    if (value_ == value)
        return;
    value_ = value;
    changed(Change::Selection);
}

void CheckBox::userToggled() {
    const auto alive = keepFormAlive();
    setValue(value_ == CheckValue::Unchecked ? CheckValue::Checked : CheckValue::Unchecked);
    onClick.raise();
}

}  // namespace quorel::ui

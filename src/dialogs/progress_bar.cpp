#include "dialogs/progress_bar.h"

namespace quorel::dialogs {

const automation::ClassTable& ProgressBar::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<ProgressBar>(u"ProgressBar")
            .method(u"Create", &ProgressBar::Create)
            .method(u"Destroy", &ProgressBar::Destroy)
            .method(u"Information", &ProgressBar::Information, {param(u"txt")})
            .method(u"min", &ProgressBar::min, {param(u"Value")})
            .method(u"max", &ProgressBar::max, {param(u"Value")})
            .method(u"Value", &ProgressBar::Value, {param(u"val")})
            .method(u"PopUp", &ProgressBar::PopUp)
            .method(u"Conceal", &ProgressBar::Conceal);
    return table;
}

void ProgressBar::Create() {
    holder_.create(std::make_shared<frmProgressBar>(environment_.desktop, environment_.clock));
}

void ProgressBar::Destroy() {
    holder_.destroy();
}

void ProgressBar::Information(const std::u16string& txt) {
    form()->setInformation(txt);
}

void ProgressBar::min(std::int32_t Value) {
    form()->setMinimum(Value);
}

void ProgressBar::max(std::int32_t Value) {
    form()->setMaximum(Value);
}

void ProgressBar::Value(std::int32_t val) {
    form()->setValue(val);
}

void ProgressBar::PopUp() {
    const auto shown = form();
    shown->show(ui::Modality::Modeless);
    shown->refresh();
}

void ProgressBar::Conceal() {
    form()->hide();
}

}  // namespace quorel::dialogs

#include "dialogs/name_edit.h"

namespace quorel::dialogs {

const automation::ClassTable& NameEdit::classTable() const {
    using automation::param;
    static const automation::ClassTable table = automation::ClassTable::of<NameEdit>(u"NameEdit")
                                                    .method(u"Create", &NameEdit::Create)
                                                    .method(u"Destroy", &NameEdit::Destroy)
                                                    .method(u"PopUp", &NameEdit::PopUp)
                                                    .method(u"Conceal", &NameEdit::Conceal)
                                                    .method(u"Caption", &NameEdit::Caption, {param(u"val")})
                                                    .method(u"Question", &NameEdit::Question, {param(u"val")})
                                                    .property(u"name", &NameEdit::name, &NameEdit::setName)
                                                    .method(u"IsOk", &NameEdit::IsOk);
    return table;
}

void NameEdit::Create() {
    holder_.create(std::make_shared<frmNameEdit>(environment_.desktop));
}

void NameEdit::Destroy() {
    holder_.destroy();
}

void NameEdit::PopUp() {
    holder_.form()->PopUp();
}

void NameEdit::Conceal() {
    holder_.form()->hide();
}

void NameEdit::Caption(const std::u16string& val) {
    holder_.form()->setText(val);
}

void NameEdit::Question(const std::u16string& val) {
    holder_.form()->setQuestion(val);
}

std::u16string NameEdit::name() const {
    return holder_.form()->EditName();
}

void NameEdit::setName(const std::u16string& val) {
    holder_.form()->setEditName(val);
}

bool NameEdit::IsOk() const {
    return holder_.form()->IsOk();
}

}  // namespace quorel::dialogs

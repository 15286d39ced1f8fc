#include "dialogs/property_editor.h"

namespace quorel::dialogs {

using automation::Object;

const automation::ClassTable& PropertyEditor::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<PropertyEditor>(u"PropertyEditor")
            .method(u"Create", &PropertyEditor::Create, {param(u"Path")})
            .method(u"Destroy", &PropertyEditor::Destroy)
            .method(u"Init", &PropertyEditor::Init, {param(u"mo")})
            .method(u"Deinit", &PropertyEditor::Deinit)
            .method(u"PopUp", &PropertyEditor::PopUp, {param(u"modal", true)})
            .method(u"Conceal", &PropertyEditor::Conceal)
            .objectProperty(u"repObject", &PropertyEditor::repObject, &PropertyEditor::setRepObject)
            .readOnly(u"OK", &PropertyEditor::OK)
            .readOnly(u"Cancelled", &PropertyEditor::Cancelled)
            .objectProperty(u"CallbackObject", &PropertyEditor::CallbackObject,
                            &PropertyEditor::setCallbackObject)
            .property(u"Caption", &PropertyEditor::Caption, &PropertyEditor::setCaption)
            .property(u"ReadOnly", &PropertyEditor::ReadOnly, &PropertyEditor::setReadOnly);
    return table;
}

void PropertyEditor::Create(const std::u16string& Path) {
    holder_.create(std::make_shared<frmPropertyEditor>(environment_))->Create(Path);
}

void PropertyEditor::Destroy() {
    holder_.destroy();
}

void PropertyEditor::Init(const Object& mo) {
    holder_.form()->Init(mo);
}

void PropertyEditor::Deinit() {
    holder_.form()->Deinit();
}

void PropertyEditor::PopUp(bool modal) {
    holder_.form()->PopUp(modal);
}

void PropertyEditor::Conceal() {
    holder_.form()->Conceal();
}

Object PropertyEditor::repObject() const {
    return holder_.form()->repObject();
}

void PropertyEditor::setRepObject(const Object& object) {
    holder_.form()->setRepObject(object);
}

bool PropertyEditor::OK() const {
    return holder_.form()->OK();
}

bool PropertyEditor::Cancelled() const {
    return !OK();
}

Object PropertyEditor::CallbackObject() const {
    return holder_.form()->CallbackObject();
}

void PropertyEditor::setCallbackObject(const Object& callback) {
    holder_.form()->setCallbackObject(callback);
}

std::u16string PropertyEditor::Caption() const {
    return holder_.form()->text();
}

void PropertyEditor::setCaption(const std::u16string& caption) {
    holder_.form()->setText(caption);
}

bool PropertyEditor::ReadOnly() const {
    return holder_.form()->ReadOnly();
}

void PropertyEditor::setReadOnly(bool readOnly) {
    holder_.form()->setReadOnly(readOnly);
}

}  // namespace quorel::dialogs

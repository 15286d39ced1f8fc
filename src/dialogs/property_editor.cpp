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
    makeForm()->Create(Path);
}

void PropertyEditor::Init(const Object& mo) {
    form()->Init(mo);
}

void PropertyEditor::Deinit() {
    form()->Deinit();
}

Object PropertyEditor::repObject() const {
    return form()->repObject();
}

void PropertyEditor::setRepObject(const Object& object) {
    form()->setRepObject(object);
}

bool PropertyEditor::OK() const {
    return form()->OK();
}

bool PropertyEditor::Cancelled() const {
    return !OK();
}

Object PropertyEditor::CallbackObject() const {
    return form()->CallbackObject();
}

void PropertyEditor::setCallbackObject(const Object& callback) {
    form()->setCallbackObject(callback);
}

std::u16string PropertyEditor::Caption() const {
    return form()->text();
}

void PropertyEditor::setCaption(const std::u16string& caption) {
    form()->setText(caption);
}

bool PropertyEditor::ReadOnly() const {
    return form()->ReadOnly();
}

void PropertyEditor::setReadOnly(bool readOnly) {
    form()->setReadOnly(readOnly);
}

}  // namespace quorel::dialogs

#include "dialogs/frm_property_editor.h"

#include "dialogs/property_dialog_layout.h"
#include "platform/automation/calls.h"
#include "platform/ui/glyphs.h"
#include "platform/ui/plain_controls.h"

namespace quorel::dialogs {

using automation::byRef;
using automation::Object;
using automation::Value;
using namespace ui::literals;

namespace {

constexpr ui::Size kEditorSize{6600_tw, 6600_tw};

/// What the callback made of a flag. Languages without arguments by reference return it instead.
[[nodiscard]] bool flagOf(const Value& argument, const Value& returned) {
    const bool* const result = returned.getIf<bool>();
    return result != nullptr ? *result : argument.toBoolean();
}

}  // namespace

frmPropertyEditor::frmPropertyEditor(const frame::Environment& environment)
    : Form(environment.desktop, u"frmPropertyEditor"),
      property_(add<controls::Property>(u"Property1", environment.desktop, environment.fileDialogs,
                                        environment.valuePickers)),
      buttons_(add<ui::Panel>(u"Buttons")),
      okButton_(buttons_.add<ui::Button>(u"ButtonOK")),
      cancelButton_(buttons_.add<ui::Button>(u"ButtonCancel")) {
    setText(u"Property Editor");
    okButton_.setText(u"OK");
    okButton_.setToolTip(u"OK");
    okButton_.setGlyph(ui::glyphs::tick());
    cancelButton_.setText(u"Cancel");
    cancelButton_.setToolTip(u"Cancel");
    cancelButton_.setGlyph(ui::glyphs::cross());
    setDefaultButton(&okButton_);
    setCancelButton(&cancelButton_);
    okButton_.onClick.connect([this] { ButtonOK_Click(); });
    cancelButton_.onClick.connect([this] { ButtonCancel_Click(); });
    forwardEvents();
    property_.onFailure.connect(
        [this](const automation::Error& error) { procedure(u"RepObject", [&error] { throw error; }); });
    onLoad.connect([this] { ok_ = false; });
    onUnload.connect([this] { ok_ = false; });
    onResize.connect([this] { place(); });
    setMinimumClientSize(leastPropertyDialogSize(desktop().textSize(u"Xg").height));
    setClientSize(kEditorSize);
    property_.list().focus();
}

// The lifecycle.
// ------------------------------------------------------------------------

void frmPropertyEditor::Create(std::u16string_view path) {
    property_.initialise();
    property_.setPath(path);
}

void frmPropertyEditor::Init(const Object& metaObject) {
    property_.setMetaObject(metaObject);
    property_.build();
}

void frmPropertyEditor::Deinit() {
    property_.release();
}

void frmPropertyEditor::PopUp(bool modal) {
    procedure(u"Popup", [&] { show(modal ? ui::Modality::Modal : ui::Modality::Modeless); });
}

void frmPropertyEditor::Conceal() {
    procedure(u"Conceal", [this] { hide(); });
}

void frmPropertyEditor::Destroy() noexcept {
    property_.release();
    property_.close();
    callback_.reset();
}

Object frmPropertyEditor::repObject() {
    return procedure(u"RepObject", [this] { return property_.repObject(); });
}

void frmPropertyEditor::setRepObject(const Object& object) {
    procedure(u"RepObject", [&] { property_.setRepObject(object); });
}

void frmPropertyEditor::ButtonOK_Click() {
    procedure(u"Ok", [this] {
        property_.apply();
        if (!isLoaded())
            return;
        ok_ = true;
        hide();
    });
}

void frmPropertyEditor::ButtonCancel_Click() {
    ok_ = false;
    hide();
}

// The events of the property control, handed on under their names. What the callback puts into its arguments
// is taken over together, when all of it can be.
// ------------------------------------------------------------------------

template <class Call>
void frmPropertyEditor::forward(std::u16string_view event, Call&& call) {
    procedure(event, [&] {
        if (const Object callback = callback_)
            call(callback, event);
    });
}

void frmPropertyEditor::forwardEvents() {
    controls::PropertyEvents& events = property_.events();
    events.onCreatePropertyControl.connect([this](Object& property, bool& handled) {
        forward(u"CreatePropertyControl", [&](const Object& callback, std::u16string_view event) {
            Value first(property), flag(handled);
            const Value returned = callback.call(event, byRef(first), byRef(flag));
            const bool result = flagOf(flag, returned);
            property = first.toObject();
            handled = result;
        });
    });
    events.onPropertyControlCreated.connect([this](Object& property, const Object& control) {
        forward(u"PropertyControlCreated", [&](const Object& callback, std::u16string_view event) {
            Value first(property);
            callback.call(event, byRef(first), control);
            property = first.toObject();
        });
    });
    const auto forwardProperty = [this](std::u16string_view name) {
        return [this, name](Object& property) {
            forward(name, [&](const Object& callback, std::u16string_view event) {
                Value first(property);
                callback.call(event, byRef(first));
                property = first.toObject();
            });
        };
    };
    events.onNewProperty.connect(forwardProperty(u"NewProperty"));
    events.onPropertyDeleted.connect(forwardProperty(u"PropertyDeleted"));
    events.onPropertyChanged.connect([this](Object& property, std::u16string& oldText,
                                            std::u16string& newText, const Value& value, bool& cancel) {
        forward(u"PropertyChanged", [&](const Object& callback, std::u16string_view event) {
            Value first(property), before(oldText), after(newText), flag(cancel);
            const Value returned =
                callback.call(event, byRef(first), byRef(before), byRef(after), value, byRef(flag));
            const bool result = flagOf(flag, returned);
            std::u16string formerText = before.toString();
            std::u16string laterText = after.toString();
            property = first.toObject();
            oldText = std::move(formerText);
            newText = std::move(laterText);
            cancel = result;
        });
    });
    events.onPropertyValidate.connect(
        [this](Object& property, const Value& oldValue, const Value& newValue, bool& valid) {
            forward(u"PropertyValidate", [&](const Object& callback, std::u16string_view event) {
                Value first(property), flag(valid);
                const Value returned = callback.call(event, byRef(first), oldValue, newValue, byRef(flag));
                const bool result = flagOf(flag, returned);
                property = first.toObject();
                valid = result;
            });
        });
}

void frmPropertyEditor::place() {
    const PropertyDialogLayout layout = layoutPropertyDialog(clientSize(), desktop().textSize(u"Xg").height);
    property_.setBounds(layout.property);
    buttons_.setBounds(layout.buttons);
    okButton_.setBounds(layout.ok);
    cancelButton_.setBounds(layout.cancel);
}

}  // namespace quorel::dialogs

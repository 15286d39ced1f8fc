#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/automation/object.h"
#include "platform/controls/property.h"
#include "platform/ui/form.h"

namespace quorel::dialogs {

/// The property editor's window. OK writes the changed values, sets the flag and hides it; Cancel clears the
/// flag and hides it. What fails in its procedures is shown in the error box with module label
/// "PropertyEditor"; `Create`, `Init` and `Deinit` have no label and throw.
class frmPropertyEditor final : public ui::Form {
  public:
    explicit frmPropertyEditor(const frame::Environment& environment);

    void Create(std::u16string_view path);
    void Init(const automation::Object& metaObject);
    void Deinit();
    void PopUp(bool modal);
    void Conceal();
    /// Drops every reference to the host's objects.
    void Destroy() noexcept;

    [[nodiscard]] automation::Object repObject();
    void setRepObject(const automation::Object& object);
    [[nodiscard]] const automation::Object& CallbackObject() const noexcept { return callback_; }
    void setCallbackObject(automation::Object callback) { callback_ = std::move(callback); }
    [[nodiscard]] bool ReadOnly() const noexcept { return property_.isReadOnly(); }
    void setReadOnly(bool readOnly) { property_.setReadOnly(readOnly); }
    /// True from OK until the next click on a button, load or unload.
    [[nodiscard]] bool OK() const noexcept { return ok_; }

    [[nodiscard]] controls::Property& Property1() noexcept { return property_; }

  private:
    void ButtonOK_Click();
    void ButtonCancel_Click();
    void forwardEvents();
    void place();

    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"PropertyEditor", label, std::forward<Body>(body));
    }
    /// Calls the callback object's member of that name, if there is a callback object, under that label.
    template <class Call>
    void forward(std::u16string_view event, Call&& call);

    controls::Property& property_;
    ui::Panel& buttons_;
    ui::Button& okButton_;
    ui::Button& cancelButton_;
    automation::Object callback_;
    bool ok_ = false;
};

}  // namespace quorel::dialogs

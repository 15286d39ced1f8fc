#pragma once

#include <memory>
#include <utility>

#include "platform/automation/error.h"
#include "platform/ui/form.h"

namespace quorel::frame {

/// The one thing a public window class holds: its form, from `Create` to `Destroy`. A form's own `Destroy`
/// drops what it holds of the host.
template <class F>
class FormHolder {
  public:
    FormHolder() = default;
    FormHolder(const FormHolder&) = delete;
    FormHolder& operator=(const FormHolder&) = delete;
    /// A window ends with the last reference to its public object.
    ~FormHolder() { destroy(); }

    /// Ends the form held before, takes the new one and loads it.
    std::shared_ptr<F> create(std::shared_ptr<F> form) {
        destroy();
        form_ = form;
        form->load();
        return form;
    }

    /// The form, kept alive for the caller. Error 91 (object variable not set) before `create` and after
    /// `destroy`.
    [[nodiscard]] std::shared_ptr<F> form() const {
        if (!form_)
            throw automation::Error(automation::error_number::kObjectNotSet);
        return form_;
    }
    [[nodiscard]] bool isSet() const noexcept { return form_ != nullptr; }

    /// Hides, unloads and drops the form. Harmless when repeated, and when the unload comes back here: the
    /// inner call finds the form and ends it, the outer one has nothing left to drop.
    void destroy() {
        if (const std::shared_ptr<F> form = form_) {
            form->hide();
            form->unload();
            form->Destroy();
            if (form_ == form)
                form_.reset();
        }
    }

  private:
    std::shared_ptr<F> form_;
};

}  // namespace quorel::frame

#pragma once

#include <cstdint>
#include <string>

#include "dialogs/frm_progress_bar.h"
#include "frame/environment.h"
#include "frame/form_holder.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::dialogs {

/// The public class "QuorelUtility.ProgressBar": a bare bar for a long operation of the host's. The three
/// numbers may come in any order and be anything. Every member but `Create` and `Destroy` is error 91 while
/// there is no form.
class ProgressBar final : public automation::NativeObject {
  public:
    explicit ProgressBar(const frame::Environment& environment) : environment_(environment) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create();
    void Destroy();
    void Information(const std::u16string& txt);
    void min(std::int32_t Value);
    void max(std::int32_t Value);
    void Value(std::int32_t val);
    void PopUp();
    void Conceal();

    /// Error 91 while there is none.
    [[nodiscard]] std::shared_ptr<frmProgressBar> form() const { return holder_.form(); }

  private:
    frame::Environment environment_;
    frame::FormHolder<frmProgressBar> holder_;
};

}  // namespace quorel::dialogs

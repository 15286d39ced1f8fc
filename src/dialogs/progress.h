#pragma once

#include <cstdint>
#include <string>

#include "dialogs/frm_progress.h"
#include "frame/environment.h"
#include "frame/form_holder.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::dialogs {

/// The public class "QuorelUtility.Progress": shows how far a long operation of the host's is. Every member
/// but `Create`, `Destroy`, `Conceal` and `getOverflow` is error 91 while there is no form.
class Progress final : public automation::NativeObject {
  public:
    explicit Progress(const frame::Environment& environment) : environment_(environment) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create();
    void Destroy();
    /// See `progressRange` for what becomes of the three; the host's own variables stay as they are.
    void Init(std::int32_t initValue, std::int32_t maxItem, std::int32_t MinItem);
    void setText(const std::u16string& text);
    void setTitle(const std::u16string& title);
    void setCaption(const std::u16string& caption);
    void incValue(std::int32_t avalue);
    /// How many advances came when the bar was full.
    [[nodiscard]] std::int32_t getOverflow() const noexcept { return overflow_; }
    void PopUp();
    void Conceal();

    /// Error 91 while there is none.
    [[nodiscard]] std::shared_ptr<frmProgress> form() const { return holder_.form(); }

  private:
    frame::Environment environment_;
    frame::FormHolder<frmProgress> holder_;
    std::int32_t overflow_ = 0;
};

}  // namespace quorel::dialogs

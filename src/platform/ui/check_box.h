#pragma once

#include <cstdint>
#include <string_view>

#include "platform/ui/control.h"

namespace quorel::ui {

enum class CheckValue : std::int32_t { Unchecked = 0, Checked = 1, Grayed = 2 };

/// A caption with a box before it. The user ticks it and takes the tick away; grayed it becomes only by
/// program, and the user's next act leaves it unchecked.
class CheckBox : public Control {
  public:
    explicit CheckBox(std::u16string_view name) : Control(name) {}
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] CheckValue value() const noexcept { return value_; }
    void setValue(CheckValue value);
    [[nodiscard]] bool isChecked() const noexcept { return value_ == CheckValue::Checked; }
    void setChecked(bool checked) { setValue(checked ? CheckValue::Checked : CheckValue::Unchecked); }

    Event<> onClick;  ///< the user has changed the value, by mouse, Space or access key

    void userToggled();

  private:
    CheckValue value_ = CheckValue::Unchecked;
};

}  // namespace quorel::ui

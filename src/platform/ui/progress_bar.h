#pragma once

#include <cstdint>
#include <string_view>

#include "platform/ui/control.h"

namespace quorel::ui {

/// A bar that fills. Its three numbers are kept as they are set, in any order and whatever they are; what is
/// drawn is the value brought between the ends, and nothing while the ends enclose nothing. It is
/// painted at once, some 30 times a second and when it is full, for who makes progress seldom serves
/// messages.
class ProgressBar : public Control {
  public:
    explicit ProgressBar(std::u16string_view name) : Control(name) { setTabStop(false); }
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] std::int32_t minimum() const noexcept { return minimum_; }
    [[nodiscard]] std::int32_t maximum() const noexcept { return maximum_; }
    [[nodiscard]] std::int32_t value() const noexcept { return value_; }
    void setMinimum(std::int32_t minimum) { set(minimum_, minimum); }
    void setMaximum(std::int32_t maximum) { set(maximum_, maximum); }
    void setValue(std::int32_t value) { set(value_, value); }

    /// How much of the bar is filled, 0 to 1.
    [[nodiscard]] double filled() const noexcept;

  private:
    void set(std::int32_t& number, std::int32_t to);

    std::int32_t minimum_ = 0;
    std::int32_t maximum_ = 100;
    std::int32_t value_ = 0;
};

}  // namespace quorel::ui

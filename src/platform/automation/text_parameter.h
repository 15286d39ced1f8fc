#pragma once

// For members that take a text as `std::u16string_view`: a string that the caller passes is seen where it is,
// anything else as it converts. A member that calls others must have read it before: a variable that was
// passed may change.

#include <string>
#include <string_view>

#include "platform/automation/member_call.h"

namespace quorel::automation::detail {

template <>
class BoundArgument<std::u16string_view> {
  public:
    explicit BoundArgument(Argument& argument) : argument_(argument) {
        if (!argument.value().text())
            converted_ = argument.value().toString();
    }
    [[nodiscard]] std::u16string_view pass() const noexcept {
        return converted_.text().value_or(argument_.value().text().value_or(std::u16string_view()));
    }
    void writeBack() const noexcept {}

  private:
    Argument& argument_;
    Value converted_;  ///< empty for a string
};

}  // namespace quorel::automation::detail

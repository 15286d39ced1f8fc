#pragma once

#include <oaidl.h>
#include <windows.h>

#include <array>
#include <span>
#include <vector>

#include "platform/automation/value.h"
#include "platform/win32/com/com_ptr.h"

namespace quorel::win32 {

/// The arguments of one call of a foreign member, as the platform wants them: last first, variables by
/// reference.
class CallFrame {
  public:
    /// For an assignment the value assigned is the last argument.
    CallFrame(std::span<automation::Argument> arguments, bool assigns);
    CallFrame(const CallFrame&) = delete;
    CallFrame& operator=(const CallFrame&) = delete;

    [[nodiscard]] DISPPARAMS& parameters() noexcept { return parameters_; }
    [[nodiscard]] std::span<automation::Argument> arguments() const noexcept { return arguments_; }
    [[nodiscard]] bool empty() const noexcept { return arguments_.empty(); }
    [[nodiscard]] bool assignsObject() const noexcept;

    /// Passes variables as references to what they hold instead of as references to variants: some typed
    /// members take them only so. False when there are none.
    bool useTypedReferences() noexcept;
    /// Brings what the callee put into variables back to the caller.
    void writeBack();

  private:
    static constexpr std::size_t kInPlace = 6;

    [[nodiscard]] std::size_t slotOf(std::size_t argument) const noexcept {
        return arguments_.size() - 1 - argument;
    }

    std::span<automation::Argument> arguments_;
    std::array<Variant, kInPlace> valuesInPlace_;  // what is passed, or what a reference leads to
    std::array<VARIANT, kInPlace> passedInPlace_;  // not owned
    std::vector<Variant> moreValues_;
    std::vector<VARIANT> morePassed_;
    std::span<Variant> values_;
    std::span<VARIANT> passed_;
    DISPID assigned_ = DISPID_PROPERTYPUT;
    DISPPARAMS parameters_{};
};

}  // namespace quorel::win32

#pragma once

#include <oaidl.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <memory_resource>
#include <span>
#include <vector>

#include "platform/automation/value.h"

namespace quorel::win32 {

/// A named argument that the member does not have.
struct UnknownArgument {};

/// The arguments of a call that comes from outside: in order, references followed, named ones put in their
/// places.
class HostCall {
  public:
    /// Throws `UnknownArgument`, and `Error` for what cannot be converted.
    explicit HostCall(const DISPPARAMS& parameters);
    HostCall(const HostCall&) = delete;
    HostCall& operator=(const HostCall&) = delete;

    [[nodiscard]] std::span<automation::Argument> arguments() noexcept { return arguments_; }
    /// Stores into the caller's variables what the member changed.
    void writeBack();

  private:
    struct Variable {
        const VARIANT* outside;
        automation::Value before;
        automation::Value now;
    };

    void place(std::size_t position, const VARIANT& given);

    static constexpr std::size_t kInPlace = 10;  // arguments that need no memory of their own

    std::array<std::byte, kInPlace*(sizeof(automation::Argument) + sizeof(Variable))> room_;
    std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
    std::pmr::vector<automation::Argument> arguments_{&memory_};
    std::pmr::vector<Variable> variables_{&memory_};
};

}  // namespace quorel::win32

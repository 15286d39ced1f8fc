#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/object.h"

namespace quorel::repository {

/// The numbers of members that are named after properties and meta links. One name has one number on every
/// object of the process, whatever repository the object is of; names ignore case. Safe to use from several
/// threads.
class MemberNames {
  public:
    static constexpr std::int32_t kFirst = 0x10000;

    /// The number of a name, given at the first asking. Ask only for names that some type declares, for they
    /// are kept until the process ends.
    [[nodiscard]] static automation::MemberId idOf(std::u16string_view name);
    /// The folded name behind a number; empty when it was never given.
    [[nodiscard]] static std::optional<std::u16string> nameOf(automation::MemberId id);
};

}  // namespace quorel::repository

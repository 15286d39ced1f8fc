#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/text.h"
#include "settings/entry.h"

namespace quorel::settings {

/// Entries by name. Names ignore case; an entry keeps its name as it was first given. Nothing is thrown: what
/// fails has the neutral result.
class Attributes {
  public:
    /// Sets the value of an entry that is there. ALWAYS false, whether or not it was.
    bool SetEntry(std::u16string_view name, const automation::Value& value);
    /// The value, or "" when there is no such entry.
    [[nodiscard]] automation::Value GetEntry(std::u16string_view name) const;
    /// Adds an entry without a value. False, and nothing changes, when the name is taken.
    bool AddEntry(std::u16string_view name);
    /// The entry; null when there is none.
    [[nodiscard]] const Entry* find(std::u16string_view name) const;

  private:
    std::unordered_map<std::u16string, Entry, automation::FoldedHash, automation::FoldedEqual> entries_;
};

}  // namespace quorel::settings

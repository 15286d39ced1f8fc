#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/object.h"
#include "platform/automation/text.h"

namespace quorel::automation {

/// Creates objects by programmatic identifier: first the classes registered here, then the platform's.
class ClassRegistry {
  public:
    using Factory = std::function<Object()>;
    /// Given an identifier that is not registered here; returns an empty reference or throws `Error` when it
    /// has none.
    using PlatformFactory = std::function<Object(std::u16string_view progId)>;

    explicit ClassRegistry(PlatformFactory platform = {}) : platform_(std::move(platform)) {}

    void add(std::u16string_view progId, Factory factory);
    /// Identifiers ignore case. Throws `Error` 429 naming the identifier when nobody knows it.
    [[nodiscard]] Object createObject(std::u16string_view progId) const;

  private:
    PlatformFactory platform_;
    std::unordered_map<std::u16string, Factory, FoldedHash, FoldedEqual> factories_;
};

}  // namespace quorel::automation

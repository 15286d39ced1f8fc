#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/object.h"
#include "repository/model.h"
#include "repository/store.h"

namespace quorel::repository {

/// A property as instances reach it. A node's name and identifier answer as properties too, whether the type
/// declares them or not.
struct PropertySlot {
    enum class Origin : std::uint8_t { Stored, Name, Identifier };
    Origin origin = Origin::Stored;
    bool declared = true;
    PropertyRecord record;
};

/// What the instances of one meta object have in common. Lives as long as the repository object; slots stay
/// where they are, for a declared property is never taken away.
class TypeInfo {
  public:
    explicit TypeInfo(MetaRecord record);

    [[nodiscard]] const MetaRecord& record() const noexcept { return record_; }
    /// Takes in the properties that were added since.
    void refresh(Store& store);
    /// Null when there is no such property. Names ignore case.
    [[nodiscard]] const PropertySlot* find(std::u16string_view name);
    [[nodiscard]] const PropertySlot* find(automation::MemberId member);
    /// Declared properties in their order, beside the two that every type has.
    [[nodiscard]] const std::deque<PropertySlot>& slots() const noexcept { return slots_; }

  private:
    /// The most spellings of property names that are remembered beside the folded ones.
    static constexpr std::size_t kMostSpellings = 1024;
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const noexcept {
            return std::hash<std::u16string_view>()(text);
        }
    };

    void add(PropertySlot slot);
    [[nodiscard]] const PropertySlot* findFolded(std::u16string_view name) const;

    MetaRecord record_;
    std::deque<PropertySlot> slots_;
    PropertyId last_{};
    std::unordered_map<std::u16string, const PropertySlot*> byFoldedName_;
    std::unordered_map<std::u16string, const PropertySlot*, Hash, std::equal_to<>> bySpelling_;
    std::unordered_map<std::int32_t, const PropertySlot*> byMember_;
};

}  // namespace quorel::repository

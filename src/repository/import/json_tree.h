#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorel::repository {

/// A value of a JSON file that knows its line.
struct JsonNode {
    enum class Kind : std::uint8_t { Null, Boolean, Number, Text, List, Object };
    Kind kind = Kind::Null;
    std::uint64_t line = 0;
    std::u16string name;             ///< of a member of an object
    std::u16string text;             ///< of a text; of numbers and booleans as they are written
    std::vector<JsonNode> children;  ///< of lists and objects, in their order

    /// Nothing when this is no object or has no such member.
    [[nodiscard]] const JsonNode* member(std::u16string_view key) const;
    [[nodiscard]] bool isTrue() const { return kind == Kind::Boolean && text == u"true"; }
};

/// How deep lists and objects may stand within each other.
inline constexpr std::size_t kMostJsonLevels = 200;

/// Reads a whole file in UTF-8. Halves of surrogate pairs are kept. A member that stands twice is refused.
/// Throws `Error` naming file (`name`) and line.
[[nodiscard]] JsonNode readJson(std::string_view text, const std::string& name);

}  // namespace quorel::repository

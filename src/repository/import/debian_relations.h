#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorel::repository::debian {

/// One package name in a relation field.
struct Relation {
    std::string package;
    std::string constraint;  ///< e.g. ">= 2.14", empty when any version will do
    int group = 0;           ///< its place among the comma-separated groups, from 1
    int alternative =
        0;  ///< its place among the alternatives of its group, from 1; 0 when there are no others
};

/// Splits a field such as "a (>= 1) | b, c:any". Architecture qualifiers and restrictions are dropped.
/// Nothing when the text is no relation field.
[[nodiscard]] std::optional<std::vector<Relation>> parseRelations(std::string_view text);

/// Less than, equal to, or greater than 0 as version `a` is older than, the same as, or newer than `b`, by
/// the rules of the distribution.
[[nodiscard]] int compareVersions(std::string_view a, std::string_view b);

}  // namespace quorel::repository::debian

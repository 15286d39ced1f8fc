#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "repository/store.h"

namespace quorel::repository::debian {

/// The relation fields of a package record and the middle parts of their meta links' names.
struct RelationField {
    std::string_view field;
    std::string_view link;
};
inline constexpr std::array<RelationField, 9> kRelationFields{{{"Pre-Depends", "PreDepends"},
                                                               {"Depends", "Depends"},
                                                               {"Recommends", "Recommends"},
                                                               {"Suggests", "Suggests"},
                                                               {"Enhances", "Enhances"},
                                                               {"Conflicts", "Conflicts"},
                                                               {"Breaks", "Breaks"},
                                                               {"Replaces", "Replaces"},
                                                               {"Provides", "Provides"}}};

/// The values that the enumerations of the metamodel have in the lists at hand.
struct SeenValues {
    std::set<std::string> architectures;
    std::set<std::string> priorities;
    std::set<std::string> multiArch;
};

/// The meta link of one relation, toward real and toward virtual packages.
struct RelationType {
    MetaId link{};
    PropertyId constraint{};
    PropertyId alternative{};
};

/// The types that a package index is made of.
struct Model {
    MetaId package{}, sourcePackage{}, maintainer{}, section{}, tag{}, virtualPackage{};
    std::optional<PropertyId> architecture, priority, multiArch;
    PropertyId version{}, installedSize{}, size{}, description{}, homepage{}, essential{};
    PropertyId address{};
    PropertyId sourceVersion{};
    std::array<RelationType, kRelationFields.size()> toPackage{}, toVirtual{};
    MetaId builtFrom{}, maintainedBy{}, in{}, tagged{};
};

/// Makes the types in an empty store.
[[nodiscard]] Model makeModel(Store& store, const SeenValues& seen);

}  // namespace quorel::repository::debian

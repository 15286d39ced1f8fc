#pragma once

// The records that pass between the objects hosts see and the engine that stores them.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "repository/data_type.h"

namespace quorel::repository {

/// Row numbers of one storage. They are never given twice, so a stale one finds nothing.
enum class MetaId : std::int64_t {};
enum class ElementId : std::int64_t {};
enum class PropertyId : std::int64_t {};

/// Whether a type or an instance is of the node or of the link family.
enum class Kind : std::uint8_t { Node, Link };

enum class Direction : std::uint8_t { Outgoing, Incoming };

/// A meta node or a meta link.
struct MetaRecord {
    MetaId id{};
    Kind kind = Kind::Node;
    std::u16string name;
    std::u16string description;
    bool dynamic = false;    ///< added at run time rather than with the stored metamodel
    bool persistent = true;  ///< false only for dynamic ones, which end with the session
    MetaId source{};         ///< of a meta link
    MetaId target{};         ///< of a meta link
};

/// A property that instances of one meta object have.
struct PropertyRecord {
    PropertyId id{};
    std::u16string name;
    DataType type = DataType::String;
    std::u16string description;
    std::vector<std::u16string> values;  ///< of an enumeration, in their order
    std::u16string category{};           ///< the group that editors show it in; may be empty
};

struct RepositoryProperty {
    std::u16string name;
    std::u16string value;
};

/// Which meta objects a collection holds: all of a kind, or the meta links at one meta node.
struct MetaScope {
    Kind kind = Kind::Node;
    std::optional<Direction> direction;
    MetaId node{};
};

/// Which instances a collection holds: all of a type, or the links of that type at one node.
struct ElementScope {
    Kind kind = Kind::Node;
    MetaId type{};
    std::optional<Direction> direction;
    ElementId node{};
};

}  // namespace quorel::repository

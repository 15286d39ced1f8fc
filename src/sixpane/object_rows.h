#pragma once

#include <string>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::sixpane {

enum class ObjectKind : std::uint8_t { MetaNode, MetaLink, Node, Link };

/// One line of an object's properties, as text.
struct ObjectRow {
    std::u16string name, value;
    friend bool operator==(const ObjectRow&, const ObjectRow&) = default;
};

/// What there is to know of an object: its name, identifier, type and ends, then the properties that its type
/// declares with their values; of a type its ends and the data types of its properties. Throws what the
/// object throws.
[[nodiscard]] std::vector<ObjectRow> readObjectRows(const automation::Object& object, ObjectKind kind);

}  // namespace quorel::sixpane

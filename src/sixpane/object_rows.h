#pragma once

#include <string>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::sixpane {

enum class ObjectKind : std::uint8_t { MetaNode, MetaLink, Node, Link };

/// One line of what is told of a type, as text.
struct ObjectRow {
    std::u16string name, value;
    friend bool operator==(const ObjectRow&, const ObjectRow&) = default;
};

/// What there is to know of a type: its name, the ends of a meta link, its properties with their data types.
/// Throws what the type throws.
[[nodiscard]] std::vector<ObjectRow> readTypeRows(const automation::Object& type, ObjectKind kind);

}  // namespace quorel::sixpane

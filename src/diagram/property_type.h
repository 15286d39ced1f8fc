#pragma once

#include <string>

#include "platform/automation/value.h"

namespace quorel::diagram {

/// What a property's line says behind the colon: the data type where it is a text or a number that stands for
/// a type of variants (8 is "String"), else the name of the type.
[[nodiscard]] std::u16string propertyType(const std::u16string& typeName, const automation::Value& dataType);

}  // namespace quorel::diagram

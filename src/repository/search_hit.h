#pragma once

#include <string>

#include "repository/model.h"

namespace quorel::repository {

/// What a search found: a type, or an instance by its name, its identifier or one of its values.
struct SearchHit {
    Kind kind = Kind::Node;
    MetaId type{};            ///< the type found, or the type of the element found
    ElementId element{};      ///< none for a type
    std::u16string name;      ///< of the type or of the element
    std::u16string property;  ///< in which the words stand; empty for a name
    std::u16string text;      ///< what is shown of that value: one line, cut when it is long
};

}  // namespace quorel::repository

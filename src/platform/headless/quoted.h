#pragma once

#include <string>
#include <string_view>

#include "platform/automation/text.h"

namespace quorel::headless {

/// A name or a text as messages show it.
[[nodiscard]] inline std::string quoted(std::u16string_view text) {
    std::string result = "'";
    result += automation::toUtf8(text);
    return result += '\'';
}

}  // namespace quorel::headless

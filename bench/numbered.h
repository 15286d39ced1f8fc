#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/text.h"

namespace quorel::bench {

/// A name with a number behind it, such as "Type17".
[[nodiscard]] inline std::u16string numbered(std::u16string_view stem, std::size_t number) {
    std::u16string text(stem);
    return text.append(automation::decimal(static_cast<std::int64_t>(number)));
}

}  // namespace quorel::bench

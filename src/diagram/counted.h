#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/text.h"

namespace quorel::diagram {

/// "1 box", "2 boxes": the number, then one word or the other.
[[nodiscard]] inline std::u16string counted(std::size_t number, std::u16string_view one,
                                            std::u16string_view many) {
    return automation::decimal(static_cast<std::int64_t>(number)) += number == 1 ? one : many;
}

}  // namespace quorel::diagram

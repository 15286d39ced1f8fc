#pragma once

#include <cstdint>

namespace quorel::ui {

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
    friend constexpr bool operator==(Colour, Colour) = default;
};

}  // namespace quorel::ui

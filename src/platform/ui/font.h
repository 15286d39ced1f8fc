#pragma once

#include <cstdint>
#include <string>

namespace quorel::ui {

/// A font where it differs from that of the windows.
struct Font {
    std::u16string family{};  ///< empty: that of the windows
    std::int32_t points = 0;  ///< its size; 0: that of the windows
    bool bold = false;
    friend bool operator==(const Font&, const Font&) = default;
};

}  // namespace quorel::ui

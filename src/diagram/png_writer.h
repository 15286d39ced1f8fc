#pragma once

#include <cstdint>
#include <vector>

#include "platform/ui/picture.h"

namespace quorel::diagram {

/// A picture as the bytes of a PNG file, its pixels stored without being compressed: for small pictures.
/// Empty when the picture is not whole or has no pixels.
[[nodiscard]] std::vector<std::uint8_t> pngFile(const ui::Picture& picture);

}  // namespace quorel::diagram

#pragma once

#include "platform/ui/colour.h"

namespace quorel::win32::testing {

/// Far enough from each other, and from what a window paints by itself, to be counted.
inline constexpr ui::Colour kRed{200, 30, 40}, kBlue{20, 60, 200}, kWhite{255, 255, 255}, kBlack{};

}  // namespace quorel::win32::testing

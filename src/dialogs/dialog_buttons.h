#pragma once

#include "platform/ui/units.h"

namespace quorel::dialogs {

/// The buttons below a dialog, and its boxes of one line, which are as high.
inline constexpr ui::Twips kButtonWidth{1200};
inline constexpr ui::Twips kButtonGap{105};
/// What a button needs around a line of text.
inline constexpr ui::Twips kPadding{135};

}  // namespace quorel::dialogs

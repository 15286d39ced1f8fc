#pragma once

#include <string>
#include <string_view>

#include "platform/ui/keys.h"
#include "platform/ui/units.h"

namespace quorel::controls {

/// What a control's row of columns leaves to the bar that scrolls it.
inline constexpr ui::Twips kScrollBarRoom{330};

inline constexpr ui::KeyChord kCopyKey{ui::key('C'), ui::Modifiers::Control};

/// The name of a part: that of its control and what tells the part from the others.
[[nodiscard]] inline std::u16string suffixed(std::u16string_view name, std::u16string_view suffix) {
    std::u16string result(name);
    result += suffix;
    return result;
}

}  // namespace quorel::controls

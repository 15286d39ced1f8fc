#include "platform/ui/shown_text.h"

#include <algorithm>

namespace quorel::ui {

std::u16string shownText(std::u16string_view text) {
    std::u16string shown(text);
    std::replace(shown.begin(), shown.end(), u'\0', u'\u2400');
    return shown;
}

}  // namespace quorel::ui

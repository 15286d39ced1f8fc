#include "platform/ui/type_ahead.h"

#include <algorithm>

namespace quorel::ui {

namespace {
constexpr std::uint64_t kTogether = 1000;  // milliseconds
}

TreeItemId TypeAhead::typed(const Tree& tree, char16_t unit, std::uint64_t milliseconds) {
    if (milliseconds - last_ > kTogether)
        text_.clear();
    last_ = milliseconds;
    if (unit < u' ' || (unit == u' ' && text_.empty()))
        return TreeItemId::None;
    text_ += unit;
    const bool repeated = std::all_of(text_.begin(), text_.end(), [&](char16_t u) { return u == unit; });
    const TreeItemId whole = tree.findShown(text_, text_.size() == 1);
    return whole != TreeItemId::None || !repeated ? whole : tree.findShown(text_.substr(0, 1), true);
}

}  // namespace quorel::ui

#include "matrix/visited_sources.h"

#include <utility>

namespace quorel::matrix {

using automation::Object;

void VisitedSources::visit(const Object& node) {
    if (!node || (position_ > 0 && nodes_[position_ - 1] == node))
        return;
    // Letting go of a node may come back here: that happens when everything is in place.
    std::vector<Object> kept(nodes_.begin(), nodes_.begin() + static_cast<std::ptrdiff_t>(position_));
    if (kept.size() == kMost)
        kept.erase(kept.begin());
    kept.push_back(node);
    nodes_.swap(kept);
    position_ = nodes_.size();
}

void VisitedSources::clear() noexcept {
    position_ = 0;
    const std::vector<Object> gone = std::exchange(nodes_, {});
}

Object VisitedSources::goBack() noexcept {
    return canGoBack() ? nodes_[--position_ - 1] : Object();
}

Object VisitedSources::goForward() noexcept {
    return canGoForward() ? nodes_[position_++] : Object();
}

}  // namespace quorel::matrix

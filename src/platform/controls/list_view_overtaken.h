#pragma once

#include "platform/controls/list_view.h"

namespace quorel::controls {

/// Stands over a loop that asks row objects: the host behind them may empty, refill or rearrange the list
/// meanwhile, and what the loop has found then means nothing.
class ListView::Overtaken {
  public:
    explicit Overtaken(const ListView& view)
        : view_(view), generation_(view.generation_), arrangement_(view.arrangement_) {}
    explicit operator bool() const noexcept {
        return generation_ != view_.generation_ || arrangement_ != view_.arrangement_;
    }

  private:
    const ListView& view_;
    std::uint64_t generation_;
    std::uint64_t arrangement_;
};

}  // namespace quorel::controls

#pragma once

#include <algorithm>
#include <cstddef>

#include "diagram/layout/layout.h"

namespace quorel::diagram::layout {

/// Leaves a computation that was cancelled; never leaves `arrange`.
struct Cancelled {};

/// Tells how far a computation is, and asks whether it is to go on, each time that enough work was done.
class Watch {
  public:
    explicit Watch(const Progress& progress) : progress_(progress) {}

    /// What follows takes the computation from `from` to `to` permille.
    void enter(int from, int to) {
        from_ = from, to_ = to;
        report(from_);
    }

    /// `units` more of work is done, a unit being some nanoseconds, and `done` of `total` of what was
    /// entered.
    void work(std::size_t units, std::size_t done = 0, std::size_t total = 1) {
        if ((spent_ += units) < kBetweenReports)
            return;
        const std::size_t width = static_cast<std::size_t>(to_ - from_);
        report(from_ + static_cast<int>(std::min(done, total) * width / std::max<std::size_t>(total, 1)));
    }

  private:
    static constexpr std::size_t kBetweenReports = 200'000;

    void report(int permille) {
        spent_ = 0;
        told_ = std::max(told_, permille);
        if (progress_ && !progress_(told_))
            throw Cancelled{};
    }

    const Progress& progress_;
    std::size_t spent_ = 0;
    int from_ = 0, to_ = 0, told_ = 0;
};

}  // namespace quorel::diagram::layout

#pragma once

#include <algorithm>

#include "platform/shell/clock.h"

namespace quorel::dialogs {

/// Keeps a window that changes all the time from being painted all the time: 30 times a second at most, and
/// where painting is slow for no more than a fifth of the time.
class RepaintPace {
  public:
    explicit RepaintPace(shell::Clock& clock) : clock_(clock) {}

    /// Asked at each change; paints when it is time, and in any case after the `last` change, since none may
    /// follow.
    template <class Paint>
    void changed(bool last, Paint&& paint) {
        const double now = clock_.secondsSinceMidnight();
        const bool midnightPassed = now < painted_;
        if (!last && !midnightPassed && now < painted_ + pause_)
            return;
        paint();
        painted_ = clock_.secondsSinceMidnight();
        pause_ = std::max(kShortestPause, (painted_ - now) * 4);
    }

  private:
    static constexpr double kShortestPause = 1.0 / 30;

    shell::Clock& clock_;
    double painted_ = -1;
    double pause_ = kShortestPause;
};

}  // namespace quorel::dialogs

#pragma once

#include "platform/shell/clock.h"

namespace quorel::dialogs {

/// Says when a window that changes all the time is due for painting: 30 times a second at most.
class RepaintPace {
  public:
    explicit RepaintPace(shell::Clock& clock) : clock_(clock) {}

    /// Asked at each change; `last` is one that must be seen, since none may follow.
    [[nodiscard]] bool isDue(bool last) {
        const double now = clock_.secondsSinceMidnight();
        const bool passed = now < painted_ || now - painted_ >= kInterval;
        if (passed || last)
            painted_ = now;
        return passed || last;
    }

  private:
    static constexpr double kInterval = 1.0 / 30;

    shell::Clock& clock_;
    double painted_ = -1;
};

}  // namespace quorel::dialogs

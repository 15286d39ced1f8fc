#pragma once

namespace quorel::ui {

/// What a desktop with a keyboard offers to whoever works for long and serves no messages meanwhile.
class CancelKey {
  public:
    virtual ~CancelKey() = default;

    /// True if the user has pressed Esc in a window of this thread since the messages were last served. What
    /// was typed there until now is forgotten.
    [[nodiscard]] virtual bool takeCancelKey() = 0;
};

}  // namespace quorel::ui

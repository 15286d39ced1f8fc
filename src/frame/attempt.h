#pragma once

#include <utility>

namespace quorel::frame {

/// Runs a step whose failure means nothing to anybody: its errors are ignored. True if it succeeded.
template <class Step>
bool attempt(Step&& step) noexcept {
    try {
        std::forward<Step>(step)();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace quorel::frame

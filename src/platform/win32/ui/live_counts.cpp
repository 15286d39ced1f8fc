#include "platform/win32/ui/live_counts.h"

#include <array>
#include <atomic>
#include <cstddef>

namespace quorel::win32 {

namespace {

std::array<std::atomic<std::int64_t>, 4> counts;
std::atomic<std::int64_t> strays;

[[nodiscard]] std::atomic<std::int64_t>& of(Counted kind) noexcept {
    return counts[static_cast<std::size_t>(kind)];
}

}  // namespace

LiveCounts liveCounts() noexcept {
    return {of(Counted::Window), of(Counted::GdiObject), of(Counted::Menu), of(Counted::Hook)};
}

void countMade(Counted kind) noexcept {
    ++of(kind);
}

void countGone(Counted kind) noexcept {
    --of(kind);
}

std::int64_t strayExceptions() noexcept {
    return strays;
}

void countStrayException() noexcept {
    ++strays;
}

}  // namespace quorel::win32

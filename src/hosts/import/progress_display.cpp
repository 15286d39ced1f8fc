#include "hosts/import/progress_display.h"

#include <array>

namespace quorel::hosts {

namespace {

constexpr std::chrono::milliseconds kInterval(100);
constexpr double kMega = 1e6;

template <class... Args>
std::string formatted(const char* format, Args... args) {
    std::array<char, 160> text{};
    const int length = std::snprintf(text.data(), text.size(), format, args...);
    return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

bool ProgressDisplay::isDue(const repository::Progress& progress, Clock::time_point now) {
    if (isTerminal_)
        return now - shownAt_ >= kInterval;
    const std::uint64_t tenth = progress.total == 0 ? 0 : progress.done * 10 / progress.total;
    if (tenth < nextTenth_)
        return false;
    nextTenth_ = tenth + 1;
    return true;
}

std::string ProgressDisplay::lineOf(const repository::Progress& progress, Clock::time_point now) const {
    const double seconds = std::chrono::duration<double>(now - stageStart_).count();
    const double rate = seconds > 0 ? static_cast<double>(progress.done) / seconds : 0;
    std::string line(progress.stage);
    if (progress.total != 0)
        line += formatted(" %3llu %%", static_cast<unsigned long long>(progress.done * 100 / progress.total));
    if (unit_ == Unit::Elements)
        return line +
               formatted("  %llu elements  %.0f/s", static_cast<unsigned long long>(progress.done), rate);
    line += formatted("  %.1f MB", static_cast<double>(progress.done) / kMega);
    if (progress.total != 0)
        line += formatted(" of %.1f MB", static_cast<double>(progress.total) / kMega);
    return line + formatted("  %.1f MB/s", rate / kMega);
}

void ProgressDisplay::show(const repository::Progress& progress, Clock::time_point now) {
    if (stage_ != progress.stage) {
        stage_ = progress.stage;
        stageStart_ = now;
        nextTenth_ = 1;
    }
    if (!isDue(progress, now))
        return;
    shownAt_ = now;
    const std::string line = lineOf(progress, now);
    if (!isTerminal_) {
        std::fprintf(out_, "%s\n", line.c_str());
    } else {
        const std::size_t blanks = shownLength_ > line.size() ? shownLength_ - line.size() : 0;
        std::fprintf(out_, "\r%s%*s", line.c_str(), static_cast<int>(blanks), "");
        shownLength_ = line.size();
    }
    std::fflush(out_);
}

void ProgressDisplay::finish() {
    if (!isTerminal_ || shownLength_ == 0)
        return;
    std::fprintf(out_, "\r%*s\r", static_cast<int>(shownLength_), "");
    std::fflush(out_);
    shownLength_ = 0;
}

}  // namespace quorel::hosts

#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

#include "repository/import/progress.h"

namespace quorel::hosts {

/// Shows how far a run is. On a terminal one line that is written over, at most ten times a second; elsewhere
/// a line for each ten percent.
class ProgressDisplay {
  public:
    using Clock = std::chrono::steady_clock;
    /// What is counted: bytes of an input, or elements of a repository.
    enum class Unit { Bytes, Elements };

    ProgressDisplay(std::FILE* out, bool isTerminal, Unit unit)
        : out_(out), isTerminal_(isTerminal), unit_(unit) {}
    void show(const repository::Progress& progress, Clock::time_point now = Clock::now());
    /// Clears the line on a terminal.
    void finish();

  private:
    [[nodiscard]] bool isDue(const repository::Progress& progress, Clock::time_point now);
    [[nodiscard]] std::string lineOf(const repository::Progress& progress, Clock::time_point now) const;

    std::FILE* out_;
    bool isTerminal_;
    Unit unit_;
    std::string stage_;
    Clock::time_point stageStart_;
    Clock::time_point shownAt_;
    std::uint64_t nextTenth_ = 1;
    std::size_t shownLength_ = 0;
};

}  // namespace quorel::hosts

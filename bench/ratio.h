#pragma once

// Paired timings: a subject and its peer run in turn, so that a machine whose speed drifts drifts for both.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace quorel::bench {

/// Runs `body` once and returns its seconds.
template <class Body>
[[nodiscard]] double seconds(Body&& body) {
    const auto start = std::chrono::steady_clock::now();
    body();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

[[nodiscard]] inline double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

/// Prints one line: both medians, the median of the ratios pair by pair, and the aim, e.g.
/// "GetUUID / clock + string: 61.2 ns / 48.0 ns = 1.27 (aim: 1.50)"; no aim where it is 0. `operations` is
/// what one run does.
template <class Subject, class Peer>
double compare(const char* name, double operations, double aim, Subject&& subject, Peer&& peer,
               int runs = 9) {
    static_cast<void>(seconds(subject));
    static_cast<void>(seconds(peer));
    std::vector<double> subjectTimes, peerTimes, ratios;
    for (int run = 0; run < runs; ++run) {
        subjectTimes.push_back(seconds(subject));
        peerTimes.push_back(seconds(peer));
        ratios.push_back(subjectTimes.back() / peerTimes.back());
    }
    const double ratio = median(ratios);
    std::printf("%s: %.1f ns / %.1f ns = %.2f", name, median(subjectTimes) / operations * 1e9,
                median(peerTimes) / operations * 1e9, ratio);
    std::printf(aim > 0 ? " (aim: %.2f)\n" : "\n", aim);
    std::fflush(stdout);
    return ratio;
}

}  // namespace quorel::bench

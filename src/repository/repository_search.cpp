// The members of the repository that search.

#include <algorithm>
#include <chrono>

#include "repository/repository.h"
#include "repository/search_results.h"

namespace quorel::repository {

using automation::Object;
using automation::Ref;

namespace {

constexpr std::int32_t kLongestPreparation = 60'000;
constexpr std::int32_t kMostResults = 10'000;

/// What few changes need to be found at once; a repository that was never searched needs longer.
constexpr std::chrono::milliseconds kCatchUp{20};

}  // namespace

std::int32_t Repository::prepareSearch(std::int32_t milliseconds) {
    return store().prepareSearch(std::chrono::milliseconds(std::clamp(milliseconds, 1, kLongestPreparation)));
}

Object Repository::search(const std::u16string& text, std::int32_t limit) {
    constexpr int kAll = 100;
    const bool isComplete = store().prepareSearch(kCatchUp) == kAll;
    const auto most = static_cast<std::size_t>(std::clamp(limit, 1, kMostResults));
    return automation::make<SearchResults>(Ref<Repository>(this), store().search(text, most), isComplete);
}

}  // namespace quorel::repository

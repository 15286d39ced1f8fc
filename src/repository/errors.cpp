#include "repository/errors.h"

#include <utility>

namespace quorel::repository {

namespace {
constexpr std::size_t kLongestQuote = 120;
}

automation::Error failure(std::int32_t number, std::u16string description) {
    return {number, std::move(description), u"QuorelRepository"};
}

std::u16string inQuotes(std::u16string_view name) {
    std::u16string text = u"'";
    if (name.size() <= kLongestQuote)
        return text.append(name).append(u"'");
    return text.append(name.substr(0, kLongestQuote)).append(u"…'");
}

}  // namespace quorel::repository

#include "repository/member_names.h"

#include <deque>
#include <mutex>
#include <unordered_map>

#include "platform/automation/text.h"

namespace quorel::repository {

namespace {

struct Names {
    std::mutex mutex;
    std::deque<std::u16string> byNumber;
    std::unordered_map<std::u16string_view, std::int32_t> numbers;  // keys live in byNumber
};

Names& names() {
    static Names instance;
    return instance;
}

}  // namespace

automation::MemberId MemberNames::idOf(std::u16string_view name) {
    std::u16string folded = automation::foldCase(name);
    Names& all = names();
    const std::lock_guard lock(all.mutex);
    if (const auto found = all.numbers.find(folded); found != all.numbers.end())
        return static_cast<automation::MemberId>(found->second);
    const auto number = kFirst + static_cast<std::int32_t>(all.byNumber.size());
    all.byNumber.push_back(std::move(folded));
    all.numbers.emplace(all.byNumber.back(), number);
    return static_cast<automation::MemberId>(number);
}

std::optional<std::u16string> MemberNames::nameOf(automation::MemberId id) {
    Names& all = names();
    const std::lock_guard lock(all.mutex);
    const auto index = static_cast<std::int64_t>(id) - kFirst;
    if (index < 0 || index >= static_cast<std::int64_t>(all.byNumber.size()))
        return std::nullopt;
    return all.byNumber[static_cast<std::size_t>(index)];
}

}  // namespace quorel::repository

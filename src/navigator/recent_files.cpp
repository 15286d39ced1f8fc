#include "navigator/recent_files.h"

#include <algorithm>
#include <string_view>

#include "navigator/setting_names.h"
#include "platform/automation/text.h"

namespace quorel::navigator {

namespace {

[[nodiscard]] std::u16string recentKey(std::size_t place) {
    return u"Recent" + automation::decimal(static_cast<std::int64_t>(place + 1));
}

void removeFrom(std::vector<std::u16string>& paths, const std::u16string& path) {
    std::erase_if(paths,
                  [&](const std::u16string& each) { return automation::equalsIgnoringCase(each, path); });
}

}  // namespace

std::vector<std::u16string> RecentFiles::read() const {
    std::vector<std::u16string> paths;
    for (std::size_t place = 0; place < kMost; ++place) {
        const auto path = settings_.read(kStoreApplication, kStoreSection, recentKey(place));
        if (!path || path->empty())
            break;
        paths.push_back(*path);
    }
    return paths;
}

void RecentFiles::add(const std::u16string& path, std::size_t limit) {
    std::vector<std::u16string> paths = read();
    removeFrom(paths, path);
    paths.insert(paths.begin(), path);
    paths.resize(std::min({paths.size(), limit, kMost}));
    write(paths);
}

void RecentFiles::remove(const std::u16string& path) {
    std::vector<std::u16string> paths = read();
    removeFrom(paths, path);
    write(paths);
}

/// An empty entry ends the list; what is behind it is never read.
void RecentFiles::write(const std::vector<std::u16string>& paths) {
    for (std::size_t place = 0; place < paths.size(); ++place)
        settings_.write(kStoreApplication, kStoreSection, recentKey(place), paths[place]);
    if (paths.size() < kMost)
        settings_.write(kStoreApplication, kStoreSection, recentKey(paths.size()), {});
}

}  // namespace quorel::navigator

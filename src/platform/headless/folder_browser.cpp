#include "platform/headless/folder_browser.h"

#include "platform/automation/error.h"

namespace quorel::headless {

std::optional<std::u16string> FolderBrowser::browse(std::u16string_view title, bool offersNewFolder) {
    if (expected_.empty()) {
        desktop_.fail("an unexpected folder browser");
        return std::nullopt;
    }
    const User user = std::move(expected_.front());
    expected_.pop_front();
    auto chosen = user({std::u16string(title), offersNewFolder});
    if (chosen && chosen->size() > kLongestFolder)
        throw automation::Error(automation::error_number::kInvalidCall,
                                u"The path of the folder is too long");
    return chosen;
}

}  // namespace quorel::headless

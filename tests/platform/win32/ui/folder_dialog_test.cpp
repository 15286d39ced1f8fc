#include "platform/win32/ui/folder_dialog.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/win32/text.h"

namespace quorel::win32::testing {
namespace {

/// A path of that many characters below the folder for temporary files; its folders are not made.
std::u16string pathOfLength(std::size_t length) {
    std::u16string path(MAX_PATH, u'\0');
    path.resize(::GetTempPathW(MAX_PATH, wideBuffer(path)));
    while (path.size() + 51 < length)
        path += std::u16string(50, u'f') + u'\\';
    return path + std::u16string(length - path.size(), u'g');
}

bool isRefused(const std::u16string& path) {
    try {
        return checkedFolder(path) != path;
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), automation::error_number::kInvalidCall);
        return true;
    }
}

TEST(FolderDialog, APathThatCannotBeWholeIsRefused) {
    EXPECT_FALSE(isRefused(u"C:\\"));
    EXPECT_FALSE(isRefused(pathOfLength(258)));
    EXPECT_TRUE(isRefused(pathOfLength(259))) << "there is no such folder, so it may have been cut";
    EXPECT_TRUE(isRefused(pathOfLength(260)));
    EXPECT_TRUE(isRefused(pathOfLength(20'000)));
}

TEST(FolderDialog, TheLongestPathThereIsIsAccepted) {
    const std::u16string longest = pathOfLength(259);
    std::vector<std::u16string> made;
    for (std::size_t end = longest.find(u'\\', 3); end != std::u16string::npos;
         end = longest.find(u'\\', end + 1))
        if (::CreateDirectoryW(wide(u"\\\\?\\" + longest.substr(0, end)), nullptr) != FALSE)
            made.push_back(longest.substr(0, end));
    ASSERT_NE(::CreateDirectoryW(wide(u"\\\\?\\" + longest), nullptr), FALSE) << ::GetLastError();
    made.push_back(longest);
    EXPECT_FALSE(isRefused(longest));
    for (auto folder = made.rbegin(); folder != made.rend(); ++folder)
        ::RemoveDirectoryW(wide(u"\\\\?\\" + *folder));
}

}  // namespace
}  // namespace quorel::win32::testing

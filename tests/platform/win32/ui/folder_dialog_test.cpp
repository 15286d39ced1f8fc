#include "platform/win32/ui/folder_dialog.h"

#include <gtest/gtest.h>
#include <shlobj.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "platform/automation/error.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/text.h"

namespace quorel::win32::testing {
namespace {

/// A path of that many characters, or a few more, below the folder for temporary files; its folders are not
/// made.
std::u16string pathOfLength(std::size_t length) {
    std::u16string path(MAX_PATH, u'\0');
    path.resize(::GetTempPathW(MAX_PATH, wideBuffer(path)));
    while (path.size() + 51 < length)
        path += std::u16string(50, u'f') + u'\\';
    return path + std::u16string(std::max(length, path.size()) - path.size(), u'g');
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

/// A folder with all the folders above it that were missing; gone at the end.
class DeepFolder {
  public:
    explicit DeepFolder(std::u16string path) : path_(std::move(path)) {
        for (std::size_t end = path_.find(u'\\', 3); end != std::u16string::npos;
             end = path_.find(u'\\', end + 1))
            make(path_.substr(0, end));
        make(path_);
        EXPECT_NE(::GetFileAttributesW(wide(u"\\\\?\\" + path_)), INVALID_FILE_ATTRIBUTES);
    }
    DeepFolder(const DeepFolder&) = delete;
    DeepFolder& operator=(const DeepFolder&) = delete;
    ~DeepFolder() {
        for (auto folder = made_.rbegin(); folder != made_.rend(); ++folder)
            ::RemoveDirectoryW(wide(u"\\\\?\\" + *folder));
    }
    [[nodiscard]] const std::u16string& path() const noexcept { return path_; }

  private:
    bool make(std::u16string folder) {
        if (::CreateDirectoryW(wide(u"\\\\?\\" + folder), nullptr) == FALSE)
            return false;
        made_.push_back(std::move(folder));
        return true;
    }
    std::u16string path_;
    std::vector<std::u16string> made_;
};

struct FreeTaskMemory {
    void operator()(void* memory) const noexcept { ::CoTaskMemFree(memory); }
};
using ItemList = std::unique_ptr<ITEMIDLIST, FreeTaskMemory>;

/// What the shell's tree holds for that name below the folder for temporary files.
ItemList itemOf(IShellFolder& temporary, std::u16string name) {
    PIDLIST_RELATIVE item = nullptr;
    EXPECT_HRESULT_SUCCEEDED(
        temporary.ParseDisplayName(nullptr, nullptr, wideBuffer(name), nullptr, &item, nullptr));
    return ItemList(item);
}

/// What the shell's tree holds for a folder: the items from the top down to it. An item is the same wherever
/// its folder is, so each is made from one of the same name where paths are short.
ItemList itemsOf(const std::u16string& path) {
    std::u16string temporary = pathOfLength(0);
    PIDLIST_ABSOLUTE top = nullptr;
    EXPECT_HRESULT_SUCCEEDED(::SHParseDisplayName(wide(temporary), nullptr, &top, 0, nullptr));
    ItemList items(top);
    ComPtr<IShellFolder> folder;
    EXPECT_HRESULT_SUCCEEDED(
        ::SHBindToObject(nullptr, items.get(), nullptr, IID_IShellFolder, folder.outVoid()));
    if (!folder)
        return nullptr;
    for (std::size_t begin = temporary.size(); begin < path.size();) {
        const std::size_t end = std::min(path.find(u'\\', begin), path.size());
        const std::u16string name = path.substr(begin, end - begin);
        const DeepFolder shallow(temporary + name);
        items.reset(::ILCombine(items.get(), itemOf(*folder.get(), name).get()));
        begin = end + 1;
    }
    return items;
}

TEST(FolderDialog, TheLongestPathThereIsIsAccepted) {
    const DeepFolder longest(pathOfLength(259));
    EXPECT_FALSE(isRefused(longest.path()));
}

/// What a user gets who chooses that folder in the dialog: its path, or an error.
std::u16string chosen(const std::u16string& path) {
    const DeepFolder folder(path);
    const ItemList items = itemsOf(path);
    try {
        return folderPath(items.get());
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), automation::error_number::kInvalidCall);
        EXPECT_EQ(error.description(), u"The path of the folder is too long");
        return u"refused";
    }
}

TEST(FolderDialog, AFolderThatIsChosenIsToldInFullOrRefused) {
    ASSERT_HRESULT_SUCCEEDED(::CoInitialize(nullptr));
    EXPECT_EQ(chosen(pathOfLength(60)), pathOfLength(60));
    EXPECT_EQ(chosen(pathOfLength(200)), pathOfLength(200));
    EXPECT_EQ(chosen(pathOfLength(259)), pathOfLength(259));
    for (const std::size_t length : {260U, 261U, 300U, 500U, 1000U})
        EXPECT_EQ(chosen(pathOfLength(length)), u"refused") << length;
    ::CoUninitialize();
}

}  // namespace
}  // namespace quorel::win32::testing

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorel::shell {

/// The system's tree of folders to choose from. It opens at the top, is modal for the thread's windows, and
/// empty when the user cancels. It throws `automation::Error` when it cannot be shown, and when the path of
/// what was chosen has more than `kLongestFolder` characters.
class FolderBrowser {
  public:
    static constexpr std::size_t kLongestFolder = 259;

    virtual ~FolderBrowser() = default;
    /// `title` is the instruction over the tree. Only folders of the file system can be chosen.
    [[nodiscard]] virtual std::optional<std::u16string> browse(std::u16string_view title,
                                                               bool offersNewFolder) = 0;
};

}  // namespace quorel::shell

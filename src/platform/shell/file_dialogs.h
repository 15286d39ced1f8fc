#pragma once

#include <optional>
#include <string>

namespace quorel::shell {

/// The system's dialogs that ask for a file or a folder. Each is modal for the thread's windows and is empty
/// when the user cancels; it throws `automation::Error` when it cannot be shown.
class FileDialogs {
  public:
    struct Request {
        std::u16string title;     ///< the system's own when empty
        std::u16string folder;    ///< where it opens; the system decides when empty
        std::u16string fileName;  ///< what is proposed
        /// Of files: "description|pattern", any number of them with bars between. "All files" always comes
        /// last.
        std::u16string filter{};
        std::u16string defaultExtension{};  ///< what a name without one gets, ".txt"
    };

    virtual ~FileDialogs() = default;
    [[nodiscard]] virtual std::optional<std::u16string> openFile(const Request& request) = 0;
    [[nodiscard]] virtual std::optional<std::u16string> saveFile(const Request& request) = 0;
    [[nodiscard]] virtual std::optional<std::u16string> chooseFolder(const Request& request) = 0;
};

}  // namespace quorel::shell

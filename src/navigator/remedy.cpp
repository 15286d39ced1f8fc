#include "navigator/remedy.h"

#include <string>

namespace quorel::navigator {

using automation::Error;

namespace {

constexpr std::int32_t kFileExists = 58, kDiskFull = 61, kLocked = 70, kBadFormat = 321;

/// What the user can do about a file that the repository refuses.
[[nodiscard]] std::u16string_view remedyFor(std::int32_t number) noexcept {
    switch (number) {
        case automation::error_number::kFileNotFound:
            return u"Look whether it was moved, or its drive is not connected.";
        case automation::error_number::kPathFileAccess:
            return u"Ask for the right to read and change it, or open a copy of it in a folder of your own.";
        case kFileExists:
            return u"Choose another name, or open the file.";
        case kDiskFull:
            return u"Make room on the drive, or choose another one.";
        case kLocked:
            return u"Close it in the other program and open it again.";
        case kBadFormat:
            return u"Choose a repository (*.quorel), or take other files over by File, Import.";
        default:
            return {};
    }
}

}  // namespace

Error withRemedy(const Error& error) {
    const std::u16string_view remedy = remedyFor(error.number());
    if (remedy.empty())
        return error;
    return {error.number(), error.description() + u". " + std::u16string(remedy), error.source()};
}

}  // namespace quorel::navigator

#include "navigator/workspace.h"

#include <utility>

#include "frame/attempt.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"

namespace quorel::navigator {

using automation::Error;
using automation::Object;

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

[[nodiscard]] Error withRemedy(const Error& error) {
    const std::u16string_view remedy = remedyFor(error.number());
    if (remedy.empty())
        return error;
    return {error.number(), error.description() + u". " + std::u16string(remedy), error.source()};
}

}  // namespace

const Object& Workspace::session() {
    if (!session_)
        session_ = classes_.createObject(u"QuorelRepository.Session");
    return session_;
}

void Workspace::take(std::u16string_view member, const std::u16string& path) {
    Object information;
    try {
        information = session().get(u"RepositoryManager").toObject().call(member, path).toObject();
    } catch (const Error& error) {
        throw withRemedy(error);
    }
    Object repository = information.get(u"Repository").toObject();
    path_ = information.get(u"FileName").toString();
    information_ = std::move(information);
    repository_ = std::move(repository);
}

void Workspace::open(const std::u16string& path) {
    take(u"Open", path);
}

void Workspace::create(const std::u16string& path) {
    take(u"Create", path);
}

void Workspace::close() noexcept {
    const std::u16string path = std::exchange(path_, {});
    repository_.reset();
    information_.reset();
    if (!path.empty())
        frame::attempt([&] { session_.get(u"RepositoryManager").toObject().call(u"Close", path); });
}

}  // namespace quorel::navigator

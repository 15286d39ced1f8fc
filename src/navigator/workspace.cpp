#include "navigator/workspace.h"

#include <utility>

#include "frame/attempt.h"
#include "navigator/remedy.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"

namespace quorel::navigator {

using automation::Error;
using automation::Object;

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

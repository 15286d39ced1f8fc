#include "navigator/workspace.h"

#include <utility>

#include "frame/attempt.h"
#include "navigator/remedy.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"

namespace quorel::navigator {

using automation::Object;

const Object& Workspace::session() {
    if (!session_)
        session_ = classes_.createObject(u"QuorelRepository.Session");
    return session_;
}

Object Workspace::ask(std::u16string_view member, const std::u16string& path) {
    try {
        return session().get(u"RepositoryManager").toObject().call(member, path).toObject();
    } catch (const automation::Error& error) {
        throw withRemedy(error);
    }
}

Object Workspace::openBeside(const std::u16string& path) {
    return ask(u"Open", path);
}

Object Workspace::createBeside(const std::u16string& path) {
    return ask(u"Create", path);
}

void Workspace::adopt(Object information) {
    Object repository = information.get(u"Repository").toObject();
    path_ = information.get(u"FileName").toString();
    information_ = std::move(information);
    repository_ = std::move(repository);
}

void Workspace::close() noexcept {
    const Object information = std::exchange(information_, {});
    repository_.reset();
    path_.clear();
    if (information)
        close(information);
}

void Workspace::close(const Object& information) noexcept {
    frame::attempt([&] {
        const std::u16string path = information.get(u"FileName").toString();
        session_.get(u"RepositoryManager").toObject().call(u"Close", path);
    });
}

}  // namespace quorel::navigator

#include "navigator/component_watch.h"

#include "platform/automation/calls.h"

namespace quorel::navigator {

using automation::ClassTable;
using automation::MemberId;
using automation::Object;
using automation::param;

const ClassTable& ComponentWatch::classTable() const {
    static const ClassTable table =
        ClassTable::of<ComponentWatch>(u"ComponentManager")
            .method(u"AddComponent", &ComponentWatch::addComponent, {param(u"name"), param(u"comObject")})
            .method(u"GetComponent", &ComponentWatch::getComponent, {param(u"name")})
            .method(u"RemoveComponent", &ComponentWatch::removeComponent, {param(u"name")})
            .readOnly(u"Item", &ComponentWatch::item, {param(u"key")})
            .withId(MemberId::Default)
            .readOnly(u"Count", &ComponentWatch::count);
    return table;
}

std::unique_ptr<automation::Enumerator> ComponentWatch::enumerate() {
    return manager_.enumerate();
}

Object ComponentWatch::addComponent(const std::u16string& name, const Object& comObject) {
    Object component = manager_.call(u"AddComponent", name, comObject).toObject();
    tell();
    return component;
}

Object ComponentWatch::getComponent(const std::u16string& name) const {
    return manager_.call(u"GetComponent", name).toObject();
}

bool ComponentWatch::removeComponent(const std::u16string& name) {
    const bool removed = manager_.call(u"RemoveComponent", name).toBoolean();
    tell();
    return removed;
}

Object ComponentWatch::item(const automation::Value& key) const {
    return manager_.call(u"Item", key).toObject();
}

std::int32_t ComponentWatch::count() const {
    return manager_.get(u"Count").toInteger();
}

/// Whoever listens may stop doing so meanwhile.
void ComponentWatch::tell() const {
    if (const std::function<void()> told = onChanged)
        told();
}

WatchedSession::WatchedSession(Object session)
    : session_(std::move(session)),
      components_(automation::make<ComponentWatch>(session_.get(u"ComponentManager").toObject())) {}

const ClassTable& WatchedSession::classTable() const {
    static const ClassTable table = ClassTable::of<WatchedSession>(u"Session")
                                        .readOnly(u"RepositoryManager", &WatchedSession::repositoryManager)
                                        .readOnly(u"ComponentManager", &WatchedSession::componentManager);
    return table;
}

Object WatchedSession::repositoryManager() const {
    return session_.get(u"RepositoryManager").toObject();
}

}  // namespace quorel::navigator

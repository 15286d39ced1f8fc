#include "repository/component_manager.h"

#include <algorithm>

#include "repository/errors.h"
#include "repository/keyed_list.h"

namespace quorel::repository {

using automation::ClassTable;
using automation::MemberId;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;

const ClassTable& Component::classTable() const {
    static const ClassTable table = ClassTable::of<Component>(u"Component")
                                        .readOnly(u"name", &Component::name)
                                        .withId(MemberId::Default)
                                        .readOnly(u"ComObject", &Component::comObject);
    return table;
}

const ClassTable& ComponentManager::classTable() const {
    static const ClassTable table =
        ClassTable::of<ComponentManager>(u"ComponentManager")
            .method(u"AddComponent", &ComponentManager::addComponent, {param(u"name"), param(u"comObject")})
            .method(u"GetComponent", &ComponentManager::getComponent, {param(u"name")})
            .method(u"RemoveComponent", &ComponentManager::removeComponent, {param(u"name")})
            .readOnly(u"Item", &ComponentManager::item, {param(u"key")})
            .withId(MemberId::Default)
            .readOnly(u"Count", &ComponentManager::count);
    return table;
}

std::unique_ptr<automation::Enumerator> ComponentManager::enumerate() {
    KeyedList::Elements elements;
    for (const Ref<Component>& component : components_)
        elements.emplace_back(component->name(), component);
    return automation::make<KeyedList>(u"component", std::move(elements))->enumerate();
}

Object ComponentManager::addComponent(const std::u16string& name, const Object& comObject) {
    if (getComponent(name))
        throw failure(automation::error_number::kKeyAlreadyUsed,
                      u"There is already a component named " + inQuotes(name));
    components_.push_back(automation::make<Component>(name, comObject));
    return components_.back();
}

Object ComponentManager::getComponent(const std::u16string& name) const {
    const auto found = std::find_if(components_.begin(), components_.end(),
                                    [&](const Ref<Component>& each) { return each->name() == name; });
    return found != components_.end() ? Object(*found) : Object();
}

bool ComponentManager::removeComponent(const std::u16string& name) {
    const auto found = std::find_if(components_.begin(), components_.end(),
                                    [&](const Ref<Component>& each) { return each->name() == name; });
    if (found == components_.end())
        return false;
    // Its end may call back here, so the list is in order before it goes.
    const Ref<Component> removed = *found;
    components_.erase(found);
    return true;
}

Object ComponentManager::item(const Value& key) const {
    if (const auto position = positionOf(key, count()))
        return components_[static_cast<std::size_t>(*position)];
    const std::u16string name = key.toString();
    Object found = getComponent(name);
    if (!found)
        throw failure(automation::error_number::kSubscriptOutOfRange,
                      u"There is no component named " + inQuotes(name));
    return found;
}

}  // namespace quorel::repository

#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/native_object.h"

namespace quorel::testing {

/// What a component manager returns for a name.
class RegisteredComponent final : public automation::NativeObject {
  public:
    explicit RegisteredComponent(automation::Object comObject) : comObject_(std::move(comObject)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<RegisteredComponent>(u"Component")
                .readOnly(u"ComObject", &RegisteredComponent::comObject);
        return table;
    }

  private:
    automation::Object comObject() { return comObject_; }
    automation::Object comObject_;
};

/// A registry of named components that writes down what it is asked.
class ComponentManagerDouble final : public automation::NativeObject {
  public:
    std::map<std::u16string, automation::Object> components;
    std::vector<std::u16string> log;
    bool failsOnGet = false;
    bool failsOnRemove = false;

    void registerComponent(const std::u16string& name, automation::Object comObject) {
        components[name] = automation::make<RegisteredComponent>(std::move(comObject));
    }
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        using automation::param;
        static const automation::ClassTable table =
            automation::ClassTable::of<ComponentManagerDouble>(u"ComponentManager")
                .method(u"GetComponent", &ComponentManagerDouble::getComponent, {param(u"name")})
                .method(u"RemoveComponent", &ComponentManagerDouble::removeComponent, {param(u"name")});
        return table;
    }

  private:
    automation::Object getComponent(const std::u16string& name) {
        log.push_back(u"GetComponent " + name);
        if (failsOnGet)
            throw automation::Error(51);
        const auto found = components.find(name);
        return found != components.end() ? found->second : automation::Object();
    }
    void removeComponent(const std::u16string& name) {
        log.push_back(u"RemoveComponent " + name);
        if (failsOnRemove)
            throw automation::Error(51);
        components.erase(name);
    }
};

class SessionDouble final : public automation::NativeObject {
  public:
    automation::Object manager;
    automation::Object componentManager;

    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<SessionDouble>(u"Session")
                .readOnly(u"RepositoryManager", &SessionDouble::repositoryManager)
                .readOnly(u"ComponentManager", &SessionDouble::components);
        return table;
    }

  private:
    automation::Object repositoryManager() { return manager; }
    automation::Object components() { return componentManager; }
};

}  // namespace quorel::testing

#pragma once

#include <string>
#include <vector>

#include "platform/automation/class_table.h"

namespace quorel::repository {

/// A named component window of a session.
class Component final : public automation::NativeObject {
  public:
    Component(std::u16string name, automation::Object comObject)
        : name_(std::move(name)), comObject_(std::move(comObject)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::u16string name() const { return name_; }
    /// The public object of the component.
    [[nodiscard]] automation::Object comObject() const { return comObject_; }

  private:
    std::u16string name_;
    automation::Object comObject_;
};

/// The component windows of a session by name. Names are matched exactly. It holds the components that are
/// added until they are removed.
class ComponentManager final : public automation::NativeObject {
  public:
    ComponentManager() = default;
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    /// Error 457 when the name is taken.
    automation::Object addComponent(const std::u16string& name, const automation::Object& comObject);
    /// Nothing when there is no component of that name.
    [[nodiscard]] automation::Object getComponent(const std::u16string& name) const;
    /// Whether there was a component of that name; windows remove themselves, so a second removal is
    /// harmless.
    bool removeComponent(const std::u16string& name);
    /// `key` is a name, or an index from 1. Error 9 when there is none.
    [[nodiscard]] automation::Object item(const automation::Value& key) const;
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(components_.size()); }

  private:
    std::vector<automation::Ref<Component>> components_;
};

}  // namespace quorel::repository

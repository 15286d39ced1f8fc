#pragma once

#include <functional>
#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::navigator {

/// A session's component manager with an ear: what windows ask of it goes to the real one, and when that may
/// hold other components afterwards, `onChanged` is called. Windows end their registration by themselves;
/// this is how the navigator hears of it.
class ComponentWatch final : public automation::NativeObject {
  public:
    explicit ComponentWatch(automation::Object manager) : manager_(std::move(manager)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    /// Empty once nobody listens.
    std::function<void()> onChanged;

    automation::Object addComponent(const std::u16string& name, const automation::Object& comObject);
    [[nodiscard]] automation::Object getComponent(const std::u16string& name) const;
    bool removeComponent(const std::u16string& name);
    [[nodiscard]] automation::Object item(const automation::Value& key) const;
    [[nodiscard]] std::int32_t count() const;

  private:
    void tell() const;

    automation::Object manager_;
};

/// The session that windows are created with: the real one's repository manager, and the watched components.
class WatchedSession final : public automation::NativeObject {
  public:
    explicit WatchedSession(automation::Object session);
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] automation::Object repositoryManager() const;
    [[nodiscard]] automation::Object componentManager() const { return components_; }
    [[nodiscard]] ComponentWatch& components() const noexcept { return *components_; }

  private:
    automation::Object session_;
    automation::Ref<ComponentWatch> components_;
};

}  // namespace quorel::navigator

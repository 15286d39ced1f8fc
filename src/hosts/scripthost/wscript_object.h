#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation/class_registry.h"
#include "platform/automation/native_object.h"

namespace quorel::scripthost {

/// The arguments after the script's name: `Item` by position from 0, `Count`, `length`, enumeration.
class ScriptArguments final : public automation::NativeObject {
  public:
    explicit ScriptArguments(std::vector<std::u16string> items) : items_(std::move(items)) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    [[nodiscard]] std::u16string item(std::int32_t index) const;
    [[nodiscard]] std::int32_t count() const noexcept { return static_cast<std::int32_t>(items_.size()); }

  private:
    std::vector<std::u16string> items_;
};

/// What scripts know as `WScript`.
class WScriptObject final : public automation::NativeObject {
  public:
    /// Ends the script with an exit code.
    using Quit = std::function<void(std::int32_t)>;

    WScriptObject(const automation::ClassRegistry& classes, std::u16string script,
                  std::vector<std::u16string> arguments, Quit quit);

    [[nodiscard]] const automation::ClassTable& classTable() const override;
    /// `Echo`, which takes any number of arguments.
    [[nodiscard]] std::optional<automation::MemberId> resolveExtra(std::u16string_view name) override;
    automation::Value invokeExtra(automation::MemberId id, automation::InvokeKind kind,
                                  std::span<automation::Argument> arguments) override;

    [[nodiscard]] automation::Object arguments() const { return arguments_; }
    [[nodiscard]] automation::Object createObject(std::u16string progId) const;
    void sleep(std::int32_t milliseconds);
    void quit(std::int32_t code);
    [[nodiscard]] std::u16string scriptFullName() const { return script_; }
    [[nodiscard]] std::u16string scriptName() const;

  private:
    const automation::ClassRegistry& classes_;
    std::u16string script_;
    automation::Ref<ScriptArguments> arguments_;
    Quit quit_;
};

}  // namespace quorel::scripthost

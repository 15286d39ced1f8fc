#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::win32::testing {

/// A native collection with a default member.
class NativeList final : public automation::NativeObject {
  public:
    explicit NativeList(std::vector<automation::Value> items) : items_(std::move(items)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;
    [[nodiscard]] automation::Value item(std::int32_t index) const;
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(items_.size()); }

  private:
    std::vector<automation::Value> items_;
};

/// A native class with one member of every kind.
class NativeThing final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    /// Members that begin with "Prop", by name.
    [[nodiscard]] std::optional<automation::MemberId> resolveExtra(std::u16string_view name) override;
    automation::Value invokeExtra(automation::MemberId id, automation::InvokeKind kind,
                                  std::span<automation::Argument> arguments) override;

    std::u16string title;
    automation::Object partner;
    automation::Value kept;

    [[nodiscard]] std::u16string getTitle() const { return title; }
    void setTitle(const std::u16string& text) { title = text; }
    [[nodiscard]] automation::Object getPartner() const { return partner; }
    void setPartner(const automation::Object& other) { partner = other; }
    [[nodiscard]] automation::Object items() const;

    std::u16string describe(const std::u16string& first, const automation::Value& second,
                            const automation::Object& third) const;
    void look(std::u16string& text, automation::Object& object, std::int32_t& number, bool& flag) const;
    void change(std::u16string& text, automation::Object& object, std::int32_t& number, bool& flag);
    automation::Value echo(const automation::Value& value) const { return value; }
    void keep(const automation::Value& value) { kept = value; }
    void fail(std::int32_t number) const;
    void breakDown() const;
};

}  // namespace quorel::win32::testing

#pragma once

#include <memory>
#include <vector>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::dialogs {

/// Objects in order, for the host that asked for them: `Count`, `Item` by position from 1 (the default
/// member), and enumeration.
class ItemCollection final : public automation::NativeObject {
  public:
    explicit ItemCollection(std::vector<automation::Object> items) : items_(std::move(items)) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    [[nodiscard]] std::int32_t Count() const noexcept { return static_cast<std::int32_t>(items_.size()); }
    /// Error 9 for a position that is not there.
    [[nodiscard]] automation::Object Item(std::int32_t position) const;

  private:
    class Reader;

    std::vector<automation::Object> items_;
};

}  // namespace quorel::dialogs

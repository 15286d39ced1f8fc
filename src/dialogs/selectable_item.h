#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::dialogs {

/// One item of the selection dialog, as a row of its list: its `name` is its text, the property "1" to "7"
/// that of a further column.
class SelectableItem final : public automation::NativeObject {
  public:
    static constexpr std::size_t kMostTexts = 7;
    using Texts = std::array<std::u16string, kMostTexts>;

    SelectableItem(std::int32_t number, std::u16string text, automation::Object object)
        : text_(std::move(text)), object_(std::move(object)), number_(number) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// The number, then "ID:".
    [[nodiscard]] std::u16string key() const;
    [[nodiscard]] const std::u16string& name() const noexcept { return text_; }
    /// Empty for a column without a text.
    [[nodiscard]] std::u16string property(const std::u16string& column) const;
    void setTexts(Texts&& texts) { texts_ = std::make_unique<Texts>(std::move(texts)); }
    /// What the host has put behind it; may be empty.
    [[nodiscard]] const automation::Object& object() const noexcept { return object_; }
    [[nodiscard]] bool isChecked() const noexcept { return checked_; }
    void setChecked(bool checked) noexcept { checked_ = checked; }

  private:
    std::u16string text_;
    automation::Object object_;
    std::unique_ptr<Texts> texts_;  ///< none when all are empty
    std::int32_t number_;
    bool checked_ = false;
};

}  // namespace quorel::dialogs

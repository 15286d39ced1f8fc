#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::dialogs {

/// One item of the selection dialog, as a row of its list: its `name` is its text, the property "1" to "7"
/// that of a further column. Its texts lie behind it in the same memory: hosts add very many.
class SelectableItem final : public automation::NativeObject {
  public:
    /// The item's own text and those of the further columns, of which any may be empty.
    static constexpr std::size_t kMostTexts = 8;
    using Texts = std::array<std::u16string_view, kMostTexts>;

    /// `object` is what the host has put behind it; may be empty.
    [[nodiscard]] static automation::Ref<SelectableItem> make(std::int32_t number, const Texts& texts,
                                                              const automation::Object& object);

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// The number, then "ID:".
    [[nodiscard]] std::u16string key() const;
    [[nodiscard]] std::u16string_view name() const noexcept { return text(0); }
    /// Empty for a column without a text.
    [[nodiscard]] std::u16string_view property(const std::u16string& column) const noexcept;
    [[nodiscard]] const automation::Object& object() const noexcept { return object_; }
    [[nodiscard]] bool isChecked() const noexcept { return checked_; }
    void setChecked(bool checked) noexcept { checked_ = checked; }

    static void operator delete(void* memory) noexcept { ::operator delete(memory); }

  private:
    struct Behind {
        std::size_t bytes;
    };
    static void* operator new(std::size_t size, Behind behind) { return ::operator new(size + behind.bytes); }
    static void operator delete(void* memory, Behind) noexcept { ::operator delete(memory); }

    SelectableItem(std::int32_t number, std::span<const std::u16string_view> texts,
                   const automation::Object& object) noexcept;

    [[nodiscard]] std::u16string_view text(std::size_t column) const noexcept;
    [[nodiscard]] std::uint32_t* lengths() const noexcept;
    [[nodiscard]] char16_t* units() const noexcept {
        return reinterpret_cast<char16_t*>(lengths() + textCount_);
    }

    automation::Object object_;
    std::int32_t number_;
    std::uint8_t textCount_;  ///< without the empty ones at the end
    bool checked_ = false;
};

}  // namespace quorel::dialogs

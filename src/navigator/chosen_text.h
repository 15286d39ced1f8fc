#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::navigator {

/// A text as the object behind an item that is offered for choice.
class ChosenText final : public automation::NativeObject {
  public:
    explicit ChosenText(std::u16string text) : text_(std::move(text)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<ChosenText>(u"ChosenText").readOnly(u"Text", &ChosenText::text);
        return table;
    }
    [[nodiscard]] std::u16string text() const { return text_; }

  private:
    std::u16string text_;
};

}  // namespace quorel::navigator

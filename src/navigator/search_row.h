#pragma once

#include <cstdint>
#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::navigator {

/// A row of what a search found. It answers what a list asks of a node; a cell asks the result when its row
/// is seen.
class SearchRow final : public automation::NativeObject {
  public:
    SearchRow(automation::Object result, std::int32_t place) : result_(std::move(result)), place_(place) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// The node, link or type that was found.
    [[nodiscard]] automation::Object object() const;
    [[nodiscard]] std::u16string name() const;
    /// Its place among the results.
    [[nodiscard]] std::u16string identifier() const;
    /// "Kind", "Type" or "Where", which is the property with its value, and nothing where the name was found.
    [[nodiscard]] std::u16string property(const std::u16string& key) const;

  private:
    automation::Object result_;
    std::int32_t place_;
};

}  // namespace quorel::navigator

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/automation/class_table.h"

namespace quorel::repository {

/// A small collection with named elements, as it was when it was asked for: `Item` with a name (ignoring
/// case) or an index from 1, `Count`, enumeration.
class KeyedList final : public automation::NativeObject {
  public:
    using Elements = std::vector<std::pair<std::u16string, automation::Object>>;

    /// `what` names an element in messages, e.g. "property".
    KeyedList(std::u16string what, Elements elements)
        : what_(std::move(what)), elements_(std::move(elements)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    [[nodiscard]] automation::Object item(const automation::Value& key) const;
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(elements_.size()); }

  private:
    std::u16string what_;
    Elements elements_;
};

/// The position that a numeric key means, counted from 0, in a collection of `count` elements; none for other
/// keys. Error 9 when it is outside.
[[nodiscard]] std::optional<std::int64_t> positionOf(const automation::Value& key, std::int64_t count);

}  // namespace quorel::repository

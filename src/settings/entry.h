#pragma once

#include <string>

#include "platform/automation/value.h"

namespace quorel::settings {

/// A named text. Whatever it is given is kept as text; what has none is error 13 or 94.
class Entry {
  public:
    [[nodiscard]] automation::Value Value() const { return value_; }
    [[nodiscard]] automation::Value name() const { return name_; }
    void setValue(const automation::Value& value) { value_ = value.toString(); }
    void setName(const automation::Value& name) { name_ = name.toString(); }
    /// Returns an empty variant. A failure changes nothing.
    automation::Value Init(const automation::Value& value, const automation::Value& name) {
        std::u16string text = value.toString();
        setName(name);
        value_ = std::move(text);
        return {};
    }

  private:
    std::u16string value_;
    std::u16string name_;
};

}  // namespace quorel::settings

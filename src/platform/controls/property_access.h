#pragma once

#include <string>

#include "platform/automation/calls.h"

namespace quorel::controls {

/// The object whose properties are edited: by its `GetProperty` and `SetProperty` where it has them, else by
/// members named after the property. Throws what the object throws.
class PropertyAccess {
  public:
    explicit PropertyAccess(automation::Object object)
        : object_(std::move(object)),
          reads_(answersTo(object_, get_.name())),
          writes_(answersTo(object_, set_.name())) {}

    [[nodiscard]] const automation::Object& object() const noexcept { return object_; }
    [[nodiscard]] automation::Value read(const std::u16string& name) const {
        return reads_ ? object_.call(get_, name) : object_.get(name);
    }
    void write(const std::u16string& name, const automation::Value& value) const {
        if (writes_)
            object_.call(set_, name, value);
        else
            writeMember(name, value);
    }
    /// A member that is an object is read by its name.
    [[nodiscard]] automation::Value readMember(const std::u16string& name) const {
        automation::Value value = object_.get(name);
        const automation::Object* const member = value.getIf<automation::Object>();
        if (member == nullptr)
            return value;
        return *member ? member->get(u"name") : automation::Value();
    }
    void writeMember(const std::u16string& name, const automation::Value& value) const {
        object_.put(name, value);
    }

  private:
    automation::Member get_{u"GetProperty"};
    automation::Member set_{u"SetProperty"};
    automation::Object object_;
    bool reads_;
    bool writes_;
};

}  // namespace quorel::controls

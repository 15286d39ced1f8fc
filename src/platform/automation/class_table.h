#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/automation/member_call.h"
#include "platform/automation/native_object.h"
#include "platform/automation/text.h"

namespace quorel::automation {

/// A parameter as the table and the type library name it. One without a default must be given by the caller;
/// an optional object's default is `Value::nothing()`.
struct Parameter {
    std::u16string name;
    std::optional<Value> defaultValue;
};

[[nodiscard]] Parameter param(std::u16string_view name);
[[nodiscard]] Parameter param(std::u16string_view name, Value defaultValue);

/// Calls one member: arguments are complete (defaults filled in) and in order.
using MemberFunction = std::function<Value(NativeObject&, std::span<Argument>)>;

/// A published member. A property with several accessors is one member with one id.
struct MemberInfo {
    std::u16string name;
    MemberId id{};
    /// Of a method, or of the property's index parameters (those of a read).
    std::vector<Parameter> parameters;
    MemberFunction method;  ///< set for methods
    MemberFunction get;     ///< set for readable properties
    MemberFunction put;     ///< set for properties that take values; the value is the last argument
    MemberFunction putRef;  ///< set for properties that take objects (`Set`); the object is the last argument
};

/// The members of one native class in published order. Built once per class, as a function-local constant:
///
///     const ClassTable& SixPane::classTable() const {
///         static const ClassTable table = ClassTable::of<SixPane>(u"SixPane")
///             .property(u"Path", &SixPane::path, &SixPane::setPath)
///             .method(u"Create", &SixPane::create, {param(u"name", u""), param(u"session",
///             Value::nothing())});
///         return table;
///     }
///
/// Member functions take and return C++ types (see member_call.h); a reference to non-const is an in/out
/// argument. Ids count from 1 in the order of the table unless `withId` says otherwise.
class ClassTable {
  public:
    template <class T>
    class Builder;

    template <class T>
    [[nodiscard]] static Builder<T> of(std::u16string_view className) {
        return Builder<T>(className);
    }

    [[nodiscard]] const std::u16string& className() const noexcept { return className_; }
    [[nodiscard]] const std::vector<MemberInfo>& members() const noexcept { return members_; }
    /// Null when there is no such member. Names ignore case.
    [[nodiscard]] const MemberInfo* find(std::u16string_view name) const;
    [[nodiscard]] const MemberInfo* find(MemberId id) const;

    /// The one way a native member is called: chooses the accessor by kind, fills in defaults for arguments
    /// left out, passes surplus arguments of a property read on to the default member of its result, and
    /// throws 438, 449, 450.
    Value invoke(NativeObject& object, MemberId id, InvokeKind kind, std::span<Argument> arguments) const;

  private:
    explicit ClassTable(std::u16string_view className) : className_(className) {}
    MemberInfo& add(std::u16string_view name, std::vector<Parameter> parameters);
    void renumberLast(MemberId id);

    std::u16string className_;
    std::vector<MemberInfo> members_;
    std::unordered_map<std::u16string, std::size_t, FoldedHash, FoldedEqual> byName_;
    std::unordered_map<std::int32_t, std::size_t> byId_;
};

template <class T>
class ClassTable::Builder {
  public:
    explicit Builder(std::u16string_view className) : table_(className) {}

    template <class Function>
    Builder&& method(std::u16string_view name, Function function, std::vector<Parameter> parameters = {}) && {
        table_.add(name, std::move(parameters)).method = memberCall<T>(function);
        return std::move(*this);
    }
    /// A property read with `get`; `parameters` are its index parameters.
    template <class Get>
    Builder&& readOnly(std::u16string_view name, Get get, std::vector<Parameter> parameters = {}) && {
        table_.add(name, std::move(parameters)).get = memberCall<T>(get);
        return std::move(*this);
    }
    /// A property of a value type; `put` takes the value (after the index parameters).
    template <class Get, class Put>
    Builder&& property(std::u16string_view name, Get get, Put put,
                       std::vector<Parameter> parameters = {}) && {
        MemberInfo& member = table_.add(name, std::move(parameters));
        member.get = memberCall<T>(get);
        member.put = memberCall<T>(put);
        return std::move(*this);
    }
    /// A property that holds an object: assigned with `Set`, and by languages without it as a value.
    template <class Get, class Put>
    Builder&& objectProperty(std::u16string_view name, Get get, Put put) && {
        MemberInfo& member = table_.add(name, {});
        member.get = memberCall<T>(get);
        member.put = memberCall<T>(put);
        member.putRef = member.put;
        return std::move(*this);
    }
    template <class Put>
    Builder&& writeOnly(std::u16string_view name, Put put) && {
        table_.add(name, {}).put = memberCall<T>(put);
        return std::move(*this);
    }
    /// Gives the member added last another id, e.g. `MemberId::Default`.
    Builder&& withId(MemberId id) && {
        table_.renumberLast(id);
        return std::move(*this);
    }

    operator ClassTable() && { return std::move(table_); }  // NOLINT(google-explicit-constructor)

  private:
    ClassTable table_;
};

}  // namespace quorel::automation

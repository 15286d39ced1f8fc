#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::automation {

/// The kinds of a variant, in the order of the alternatives that `Value` stores.
enum class ValueKind : std::uint8_t {
    Empty,
    Null,
    Missing,
    Boolean,
    Integer,
    Double,
    String,
    Date,
    Object,
    Bytes,
    Array,
    Error
};

/// Days since 30 December 1899, the fraction being the time of day: the platform's automation date, local
/// time.
struct Date {
    double serial = 0;
    friend bool operator==(Date, Date) = default;
};

/// A one-dimensional array of bytes; `lowerBound` is the index of the first.
struct Bytes {
    std::vector<std::uint8_t> data;
    std::int32_t lowerBound = 0;
    friend bool operator==(const Bytes&, const Bytes&) = default;
};

/// A one-dimensional array of variants.
struct Array {
    std::vector<Value> items;
    std::int32_t lowerBound = 0;
};

/// A variant. Strings are counted UTF-16 and may hold anything, embedded nulls and lone surrogates too. The
/// `to…` conversions are the platform's: they throw `Error` 13 (type mismatch), 6 (overflow), 94 (invalid use
/// of Null) or, for an argument that was left out, 449.
class Value {
  public:
    struct NullValue {
        friend bool operator==(NullValue, NullValue) = default;
    };
    struct MissingValue {
        friend bool operator==(MissingValue, MissingValue) = default;
    };
    struct ErrorValue {
        std::int32_t number = 0;
        friend bool operator==(ErrorValue, ErrorValue) = default;
    };

    // NOLINTBEGIN(google-explicit-constructor): a variant is made of whatever a call passes
    Value() noexcept = default;
    Value(bool value) noexcept : data_(value) {}
    Value(std::int32_t value) noexcept : data_(value) {}
    Value(double value) noexcept : data_(value) {}
    Value(std::u16string value) noexcept : data_(std::move(value)) {}
    Value(std::u16string_view value) : data_(std::u16string(value)) {}
    Value(const char16_t* value) : data_(std::u16string(value)) {}
    Value(Date value) noexcept : data_(value) {}
    Value(Object value) noexcept : data_(std::move(value)) {}
    Value(Bytes value) noexcept : data_(std::move(value)) {}
    Value(Array value) noexcept;
    // NOLINTEND(google-explicit-constructor)
    template <class T>
    Value(T*) = delete;  // a pointer must not become a boolean

    [[nodiscard]] static Value null() noexcept;
    /// An optional argument that the caller left out.
    [[nodiscard]] static Value missing() noexcept;
    [[nodiscard]] static Value error(std::int32_t number) noexcept;
    /// The empty object reference ("Nothing"), which is not the same as an empty variant.
    [[nodiscard]] static Value nothing() noexcept { return Value(Object()); }

    [[nodiscard]] ValueKind kind() const noexcept { return static_cast<ValueKind>(data_.index()); }
    [[nodiscard]] bool isEmpty() const noexcept { return kind() == ValueKind::Empty; }
    [[nodiscard]] bool isNull() const noexcept { return kind() == ValueKind::Null; }
    [[nodiscard]] bool isMissing() const noexcept { return kind() == ValueKind::Missing; }

    [[nodiscard]] bool toBoolean() const;
    /// Rounds halves to the even neighbour, as the platform does.
    [[nodiscard]] std::int32_t toInteger() const;
    [[nodiscard]] double toDouble() const;
    /// "True"/"False" for booleans; numbers as short as they are exact to fifteen digits; an object answers
    /// with its default member.
    [[nodiscard]] std::u16string toString() const;
    [[nodiscard]] Date toDate() const;
    /// The reference, empty for "Nothing", empty variants and missing arguments; anything else is error 13.
    [[nodiscard]] Object toObject() const;

    /// The stored alternative, or null when the value is of another kind: no conversion, no copy.
    template <class T>
    [[nodiscard]] const T* getIf() const noexcept {
        return std::get_if<T>(&data_);
    }
    template <class T>
    [[nodiscard]] T* getIf() noexcept {
        return std::get_if<T>(&data_);
    }

    /// Variant equality (`a = b` of automation languages): strings ordinal with case, numbers and booleans by
    /// value (true is -1), a string never equals a number, empty equals "" and 0. Null equals nothing;
    /// objects by identity.
    [[nodiscard]] static bool equal(const Value& a, const Value& b);

  private:
    std::variant<std::monostate, NullValue, MissingValue, bool, std::int32_t, double, std::u16string, Date,
                 Object, Bytes, Array, ErrorValue>
        data_;
};

/// One argument of a call: a value, or a variable of the caller's that the callee may change.
class Argument {
  public:
    // NOLINTBEGIN(google-explicit-constructor): arguments are written as plain values
    Argument(Value value) noexcept : own_(std::move(value)) {}
    template <class T>
    requires(std::constructible_from<Value, T&&> && !std::same_as<std::remove_cvref_t<T>, Value> &&
             !std::same_as<std::remove_cvref_t<T>, Argument>) Argument(T&& value)
        : own_(Value(std::forward<T>(value))) {}
    // NOLINTEND(google-explicit-constructor)
    static Argument reference(Value& variable) noexcept {
        Argument argument{Value()};
        argument.variable_ = &variable;
        return argument;
    }

    [[nodiscard]] bool isReference() const noexcept { return variable_ != nullptr; }
    [[nodiscard]] Value& value() noexcept { return variable_ != nullptr ? *variable_ : own_; }
    [[nodiscard]] const Value& value() const noexcept { return variable_ != nullptr ? *variable_ : own_; }

  private:
    Value own_;
    Value* variable_ = nullptr;
};

/// Passes a variable by reference: the callee's changes are seen in `variable` after the call.
[[nodiscard]] inline Argument byRef(Value& variable) noexcept {
    return Argument::reference(variable);
}

}  // namespace quorel::automation

#pragma once

// From typed member functions to erased ones: which C++ type takes and gives which variant.

#include <cstdint>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "platform/automation/native_object.h"

namespace quorel::automation {

/// Conversions between a C++ parameter type and a `Value`. Supported: bool, std::int32_t, double,
/// std::u16string, Date, Object, Bytes, Value, Ref<T> as a result, and enumerations over std::int32_t.
template <class T>
[[nodiscard]] T fromValue(const Value& value) {
    if constexpr (std::is_same_v<T, bool>)
        return value.toBoolean();
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return value.toInteger();
    else if constexpr (std::is_enum_v<T>)
        return static_cast<T>(value.toInteger());
    else if constexpr (std::is_same_v<T, double>)
        return value.toDouble();
    else if constexpr (std::is_same_v<T, std::u16string>)
        return value.toString();
    else if constexpr (std::is_same_v<T, Date>)
        return value.toDate();
    else if constexpr (std::is_same_v<T, Object>)
        return value.toObject();
    else {
        static_assert(std::is_same_v<T, Value>, "no variant conversion for this parameter type");
        return value;
    }
}

namespace detail {

/// Holds one converted argument for the time of a call and writes it back when the callee took it by
/// reference.
template <class P>
class BoundArgument {
    using Stored = std::remove_cvref_t<P>;
    static constexpr bool kInOut =
        std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

  public:
    explicit BoundArgument(Argument& argument)
        : argument_(argument), stored_(fromValue<Stored>(argument.value())) {}
    [[nodiscard]] P pass() {
        if constexpr (std::is_lvalue_reference_v<P>)
            return stored_;
        else
            return std::move(stored_);
    }
    void writeBack() {
        if constexpr (kInOut)
            argument_.value() = Value(std::move(stored_));
    }

  private:
    Argument& argument_;
    Stored stored_;
};

template <class R, class... P, class Call, std::size_t... I>
Value callBound(Call&& call, [[maybe_unused]] std::span<Argument> arguments, std::index_sequence<I...>) {
    std::tuple<BoundArgument<P>...> bound{BoundArgument<P>(arguments[I])...};
    // What the callee has changed by reference stays changed when it fails.
    const auto writeBack = [&bound] { (std::get<I>(bound).writeBack(), ...); };
    try {
        if constexpr (std::is_void_v<R>) {
            call(std::get<I>(bound).pass()...);
            writeBack();
            return Value();
        } else {
            Value result(call(std::get<I>(bound).pass()...));
            writeBack();
            return result;
        }
    } catch (...) {
        writeBack();
        throw;
    }
}

}  // namespace detail

/// Wraps `R (T::*)(P...)` as a function of an object and its arguments.
template <class T, class C, class R, class... P>
[[nodiscard]] auto memberCall(R (C::*function)(P...)) {
    return [function](NativeObject& object, std::span<Argument> arguments) -> Value {
        auto& self = static_cast<T&>(object);
        return detail::callBound<R, P...>(
            [&](auto&&... values) -> R {
                return (self.*function)(std::forward<decltype(values)>(values)...);
            },
            arguments, std::index_sequence_for<P...>());
    };
}

template <class T, class C, class R, class... P>
[[nodiscard]] auto memberCall(R (C::*function)(P...) const) {
    return [function](NativeObject& object, std::span<Argument> arguments) -> Value {
        const auto& self = static_cast<const T&>(object);
        return detail::callBound<R, P...>(
            [&](auto&&... values) -> R {
                return (self.*function)(std::forward<decltype(values)>(values)...);
            },
            arguments, std::index_sequence_for<P...>());
    };
}

}  // namespace quorel::automation

#pragma once

// From the slots of a published interface to the members of a portable class: arguments converted, changes of
// in/out arguments stored, errors turned into status codes with an IErrorInfo. What does not fit does not
// compile.

#include <oaidl.h>
#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "platform/automation/error.h"
#include "platform/automation/native_object.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/com/variants.h"

namespace quorel::server {

using automation::Object;
using automation::Value;

/// One argument as the interface passes it, for the time of a call. `Target` is the portable parameter type
/// without reference.
template <class Given, class Target>
class Marshalled;

template <>
class Marshalled<BSTR, std::u16string> {
  public:
    explicit Marshalled(BSTR given) : value(win32::viewOf(given)) {}
    std::u16string value;
};

template <>
class Marshalled<BSTR, std::u16string_view> {
  public:
    explicit Marshalled(BSTR given) : value(win32::viewOf(given)) {}
    std::u16string_view value;
};

template <>
class Marshalled<VARIANT_BOOL, bool> {
  public:
    explicit Marshalled(VARIANT_BOOL given) : value(given != VARIANT_FALSE) {}
    bool value;
};

template <>
class Marshalled<LONG, std::int32_t> {
  public:
    explicit Marshalled(LONG given) : value(given) {}
    std::int32_t value;
};

template <>
class Marshalled<IDispatch*, Object> {
  public:
    explicit Marshalled(IDispatch* given) : value(win32::fromDispatch(given)) {}
    Object value;
};

/// Replaces what the host's variable holds by `result`, of the variable's own type.
inline void store(BSTR& variable, const std::u16string& result) {
    win32::Bstr(std::exchange(variable, win32::makeBstr(result).release())).reset();
}
inline void store(VARIANT_BOOL& variable, bool result) {
    variable = result ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void store(LONG& variable, std::int32_t result) {
    variable = result;
}
inline void store(IDispatch*& variable, const Object& result) {
    auto old = win32::ComPtr<IDispatch>::adopt(std::exchange(variable, win32::toDispatch(result).detach()));
    old.reset();
}
inline void store(VARIANT& variable, const Value& result) {
    if ((V_VT(&variable) & VT_BYREF) != 0)
        return win32::storeThrough(variable, result);
    win32::Variant converted;
    win32::toVariant(result, *converted);
    ::VariantClear(&variable);
    variable = converted.release();
}

template <class Given>
Given& referenceTo(Given* given) {
    if (given == nullptr)
        throw automation::Error(E_POINTER, u"An in/out argument is a null pointer");
    return *given;
}

/// An in/out argument: the portable member takes the value, or a reference to change it by.
template <class Given, class Target>
class Marshalled<Given*, Target> {
  public:
    explicit Marshalled(Given* given) : given_(referenceTo(given)), inner_(given_), value(inner_.value) {}
    void storeBack() { store(given_, value); }

  private:
    Given& given_;
    Marshalled<Given, Target> inner_;

  public:
    Target& value;
};

template <>
class Marshalled<VARIANT*, Value> {
  public:
    explicit Marshalled(VARIANT* given) : value(win32::fromVariant(referenceTo(given))), given_(*given) {}
    void storeBack() { store(given_, value); }
    Value value;

  private:
    VARIANT& given_;
};

namespace detail {

template <class Parameter>
inline constexpr bool kInOut =
    std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>;

template <class Parameter, class Argument>
void storeBackIfTaken(Argument& argument) {
    if constexpr (kInOut<Parameter>)
        argument.storeBack();
}

template <class Function>
struct Signature;
template <class R, class C, class... P>
struct Signature<R (C::*)(P...)> {
    using Result = R;
    using Parameters = std::tuple<P...>;
};
template <class R, class C, class... P>
struct Signature<R (C::*)(P...) const> : Signature<R (C::*)(P...)> {};
template <class R, class C, class... P>
struct Signature<R (C::*)(P...) noexcept> : Signature<R (C::*)(P...)> {};
template <class R, class C, class... P>
struct Signature<R (C::*)(P...) const noexcept> : Signature<R (C::*)(P...)> {};

}  // namespace detail

/// Calls `function` of `self` with the interface's arguments and hands its result to `keep`.
template <class Self, class Function, class Keep, class... Given>
void callPortable(Self& self, Function function, Keep&& keep, Given... given) {
    using Parameters = typename detail::Signature<Function>::Parameters;
    using Result = typename detail::Signature<Function>::Result;
    static_assert(std::tuple_size_v<Parameters> == sizeof...(Given), "the interface has other parameters");
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        std::tuple<Marshalled<Given, std::remove_cvref_t<std::tuple_element_t<I, Parameters>>>...> arguments(
            given...);
        // What the member has changed by reference stays changed when it fails.
        const auto storeBack = [&arguments] {
            (detail::storeBackIfTaken<std::tuple_element_t<I, Parameters>>(std::get<I>(arguments)), ...);
        };
        try {
            if constexpr (std::is_void_v<Result>) {
                (self.*function)(std::get<I>(arguments).value...);
                keep();
            } else {
                keep((self.*function)(std::get<I>(arguments).value...));
            }
        } catch (...) {
            storeBack();
            throw;
        }
        storeBack();
    }
    (std::index_sequence_for<Given...>());
}

}  // namespace quorel::server

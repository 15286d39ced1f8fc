#pragma once

#include <type_traits>

namespace quorel::ui {

/// Opt-in for the operators below: `template <> inline constexpr bool kIsFlags<Modifiers> = true;`
template <class E>
inline constexpr bool kIsFlags = false;

template <class E>
concept Flags = std::is_enum_v<E> && kIsFlags<E>;

template <Flags E>
constexpr E operator|(E a, E b) noexcept {
    using U = std::underlying_type_t<E>;
    return static_cast<E>(static_cast<U>(a) | static_cast<U>(b));
}
template <Flags E>
constexpr E operator&(E a, E b) noexcept {
    using U = std::underlying_type_t<E>;
    return static_cast<E>(static_cast<U>(a) & static_cast<U>(b));
}
template <Flags E>
constexpr E& operator|=(E& a, E b) noexcept {
    return a = a | b;
}
/// True if any of `wanted` is set.
template <Flags E>
[[nodiscard]] constexpr bool has(E set, E wanted) noexcept {
    return (set & wanted) != E{};
}

}  // namespace quorel::ui

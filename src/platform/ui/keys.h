#pragma once

#include <cstdint>

#include "platform/ui/flags.h"

namespace quorel::ui {

/// Keys by the platform's virtual key codes; letters and digits are their upper-case characters ('A', '7').
enum class Key : std::uint16_t {
    None = 0,
    Backspace = 0x08,
    Tab = 0x09,
    Enter = 0x0D,
    Escape = 0x1B,
    Space = 0x20,
    PageUp = 0x21,
    PageDown = 0x22,
    End = 0x23,
    Home = 0x24,
    Left = 0x25,
    Up = 0x26,
    Right = 0x27,
    Down = 0x28,
    Insert = 0x2D,
    Delete = 0x2E,
    Menu = 0x5D,
    Multiply = 0x6A,
    Add = 0x6B,
    Subtract = 0x6D,
    F1 = 0x70,
    F2 = 0x71,
    F3 = 0x72,
    F4 = 0x73,
    F5 = 0x74,
    F6 = 0x75,
    F10 = 0x79,
    Plus = 0xBB,  ///< beside the letters, as is the next; `Add` and `Subtract` are the number pad's
    Minus = 0xBD
};

[[nodiscard]] constexpr Key key(char letterOrDigit) noexcept {
    return static_cast<Key>(static_cast<unsigned char>(letterOrDigit));
}

enum class Modifiers : std::uint8_t { None = 0, Shift = 1, Control = 2, Alt = 4 };
template <>
inline constexpr bool kIsFlags<Modifiers> = true;

struct KeyChord {
    Key key = Key::None;
    Modifiers modifiers = Modifiers::None;
    friend constexpr bool operator==(KeyChord, KeyChord) = default;
};

/// A key that goes down. A handler that sets `handled` keeps the control and the dialog keyboard from seeing
/// it.
struct KeyEvent {
    KeyChord chord;
    bool handled = false;
};

}  // namespace quorel::ui

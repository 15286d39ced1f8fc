#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// What the entry points have in common. Each is called with one input and ends the process when a promise is
/// broken.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace quorel::fuzz {

/// Two bytes a unit, the lower first; a byte left over is a unit.
[[nodiscard]] inline std::u16string textOf(const std::uint8_t* data, std::size_t size) {
    std::u16string text;
    for (std::size_t at = 0; at < size; at += 2)
        text += static_cast<char16_t>(data[at] | (at + 1 < size ? data[at + 1] << 8U : 0));
    return text;
}

inline void promise(bool kept, const char* what) {
    if (kept)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

}  // namespace quorel::fuzz

#pragma once

// The vector halves of the codec, for processors that have the instructions. `count` is of the binary side.
// Each needs as many bytes as its name's vectors hold; the first and the last vector may overlap others.

#include <cstddef>
#include <cstdint>

namespace quorel::frame {

#if defined(__x86_64__)
inline constexpr bool kHasHexVectors = true;
#else
inline constexpr bool kHasHexVectors = false;
#endif

inline constexpr std::size_t kHexBlockSsse3 = 16, kHexBlockAvx2 = 32, kHexBlockAvx512 = 64;

void encodeHexSsse3(const std::uint8_t* bytes, std::size_t count, char16_t* text) noexcept;
void encodeHexAvx2(const std::uint8_t* bytes, std::size_t count, char16_t* text) noexcept;
void encodeHexAvx512(const std::uint8_t* bytes, std::size_t count, char16_t* text) noexcept;
void decodeHexSsse3(const char16_t* text, std::uint8_t* bytes, std::size_t count) noexcept;
void decodeHexAvx2(const char16_t* text, std::uint8_t* bytes, std::size_t count) noexcept;
void decodeHexAvx512(const char16_t* text, std::uint8_t* bytes, std::size_t count) noexcept;

}  // namespace quorel::frame

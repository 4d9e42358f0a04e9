/// Hexadecimal digits in vectors: values to characters and back.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_NEON

#include "codecs/hex_digits.h"
#include "wide/neon.h"

namespace neon {

/// The upper-case digit of each value from 0 to 15.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t hexDigits(uint8x16_t values) noexcept {
  return wide::lookedUp(wide::load(kHexDigits.data()), values);
}

/// The digits of each byte: those of the high nibbles, and those of the low ones.
[[nodiscard]] NEON_FUNCTION inline uint8x16x2_t digitsOf(uint8x16_t bytes) noexcept {
  return {{hexDigits(vshrq_n_u8(bytes, 4)), hexDigits(vandq_u8(bytes, wide::all(0x0F)))}};
}

/// What characters count as when they are read as digits.
struct HexValues {
  uint8x16_t values;   ///< 0 to 15 for digits of either case, 0 for anything else
  uint8x16_t isDigit;  ///< a mask
};

[[nodiscard]] NEON_FUNCTION inline HexValues hexValues(uint8x16_t characters) noexcept {
  const uint8x16_t decimal = vsubq_u8(characters, wide::all('0'));
  const uint8x16_t letter = vsubq_u8(vorrq_u8(characters, wide::all(0x20)), wide::all('a'));
  const uint8x16_t isDecimal = vcltq_u8(decimal, wide::all(10));
  const uint8x16_t isLetter = vcltq_u8(letter, wide::all(6));
  const uint8x16_t ofLetter = vandq_u8(vaddq_u8(letter, wide::all(10)), isLetter);
  return {vbslq_u8(isDecimal, decimal, ofLetter), vorrq_u8(isDecimal, isLetter)};
}

/// The bytes that two rows of characters spell, the high digits in the first row.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t hexBytes(uint8x16_t high, uint8x16_t low) noexcept {
  return vsliq_n_u8(hexValues(low).values, hexValues(high).values, 4);
}

}  // namespace neon

#endif  // WIDE_NEON

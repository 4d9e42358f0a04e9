/// Decimal character references.
#pragma once

#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace markup {

/// The length of "&#-2147483648;".
inline constexpr int kLongestDecimalReference = 14;

/// Writes "&#", the code point in decimal and ";"; returns the end. Values of 2^31 and more show as negative numbers.
/// Up to `kLongestDecimalReference` bytes may be touched, however short the reference is.
inline std::uint8_t* writeDecimalReference(char32_t codePoint, std::uint8_t* out) noexcept {
  *out++ = '&';
  *out++ = '#';
  if (codePoint > 99'999'999) [[unlikely]] {
    char* const text = reinterpret_cast<char*>(out);
    out = reinterpret_cast<std::uint8_t*>(std::to_chars(text, text + 11, static_cast<std::int32_t>(codePoint)).ptr);
  } else {
    // Eight digits at once, the first in the low byte: halves of four digits, then pairs, then single digits,
    // each step dividing all its lanes by one multiplication.
    const std::uint64_t fours = codePoint / 10'000 | static_cast<std::uint64_t>(codePoint % 10'000) << 32;
    const std::uint64_t hundreds = (fours * 5'243 >> 19) & 0x0000'007F'0000'007F;
    const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
    const std::uint64_t tens = (twos * 103 >> 10) & 0x000F'000F'000F'000F;
    const std::uint64_t digits = tens | (twos - 10 * tens) << 8;
    constexpr std::uint64_t kLastDigit = std::uint64_t{1} << 56;  // written even when it is 0
    const int leadingZeros = std::countr_zero(digits | kLastDigit) & ~7;
    const std::uint64_t text = (digits | 0x3030'3030'3030'3030) >> leadingZeros;
    std::memcpy(out, &text, sizeof text);
    out += 8 - leadingZeros / 8;
  }
  *out++ = ';';
  return out;
}

}  // namespace markup

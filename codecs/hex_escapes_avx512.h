/// "=XX" and "%XX" escapes, 16 bytes at a time, with the instruction that moves the kept bytes of a vector together.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX512

#include <bit>
#include <cstdint>
#include <immintrin.h>

#include "codecs/hex_digits.h"

namespace avx512 {

/// Writes 16 bytes, two more for each escape. Touches 64 bytes.
/// @param characters  what the bytes show as that are not escaped
/// @param escaped     the bytes to escape, a bit each
/// @param mark        what an escape begins with
/// @return            behind the text
[[nodiscard]] AVX512_FUNCTION inline std::uint8_t* storeEscaped(std::uint8_t* out, __m128i bytes, __m128i characters,
                                                                std::uint16_t escaped, std::uint8_t mark) noexcept {
  // Each byte as [character, mark, high digit, low digit], of which the first or the others are kept. The masks with
  // all bits set change nothing: GCC 12 takes the undefined operands of its own forms without masks for mistakes.
  constexpr __mmask16 kAll = 0xFFFF;
  const __m128i digits = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kHexDigits.data()));
  const __m512i values = _mm512_maskz_cvtepu8_epi32(kAll, bytes);
  const __m512i highNibbles = _mm512_maskz_slli_epi32(kAll, values, 12);
  const __m512i lowNibbles = _mm512_maskz_slli_epi32(kAll, values, 24);
  const __m512i nibbles = _mm512_and_si512(_mm512_or_si512(highNibbles, lowNibbles), _mm512_set1_epi32(0x0F0F'0000));
  const __m512i heads = _mm512_or_si512(_mm512_maskz_cvtepu8_epi32(kAll, characters), _mm512_set1_epi32(mark << 8));
  const __m512i tails = _mm512_shuffle_epi8(_mm512_maskz_broadcast_i32x4(kAll, digits), nibbles);
  const __m512i quads = _mm512_mask_blend_epi8(0xCCCC'CCCC'CCCC'CCCC, heads, tails);
  const __m512i kFirst = _mm512_set1_epi32(0xFF);
  const __m512i kOthers = _mm512_set1_epi32(~0xFF);
  const __mmask64 kept = _mm512_movepi8_mask(_mm512_mask_blend_epi32(escaped, kFirst, kOthers));
  _mm512_storeu_si512(out, _mm512_maskz_compress_epi8(kept, quads));
  return out + 16 + 2 * std::popcount(escaped);
}

/// Writes 32 bytes, two more for each escape. Touches at most `kEscapeReach` bytes beyond that.
[[nodiscard]] AVX512_FUNCTION inline std::uint8_t* storeEscaped(std::uint8_t* out, __m256i bytes, __m256i characters,
                                                                std::uint32_t escaped, std::uint8_t mark) noexcept {
  out = storeEscaped(out, _mm256_castsi256_si128(bytes), _mm256_castsi256_si128(characters),
                     static_cast<std::uint16_t>(escaped), mark);
  return storeEscaped(out, _mm256_extracti128_si256(bytes, 1), _mm256_extracti128_si256(characters, 1),
                      static_cast<std::uint16_t>(escaped >> 16), mark);
}

inline constexpr std::size_t kEscapeReach = 48;

}  // namespace avx512

#endif  // WIDE_AVX512

/// "=XX" escapes, 32 bytes at a time.
#pragma once

#include "codecs/hex_digits_avx2.h"
#include "wide/vectors.h"

#ifdef WIDE_AVX2

namespace avx2 {

/// Four bytes as [character, "=", high digit, low digit] each. For each choice of those that are escaped: the
/// shuffle that keeps one character, or the other three, of each.
inline constexpr auto kQuadRows = [] {
  std::array<std::array<std::uint8_t, 16>, 16> rows{};
  for (unsigned escaped = 0; escaped < rows.size(); ++escaped) {
    unsigned kept = 0;
    for (unsigned quad = 0; quad < 4; ++quad) {
      const bool isEscaped = (escaped >> quad & 1U) != 0;
      for (unsigned i = isEscaped ? 1 : 0; i < (isEscaped ? 4U : 1U); ++i) {
        rows[escaped][kept++] = static_cast<std::uint8_t>(4 * quad + i);
      }
    }
    while (kept < 16) rows[escaped][kept++] = 0x80;
  }
  return rows;
}();

[[nodiscard]] AVX2_FUNCTION inline __m256i quadRows(std::uint32_t low, std::uint32_t high) noexcept {
  const auto* const lowRow = reinterpret_cast<const __m128i*>(kQuadRows[low & 15].data());
  const auto* const highRow = reinterpret_cast<const __m128i*>(kQuadRows[high & 15].data());
  return _mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(lowRow)), _mm_loadu_si128(highRow), 1);
}

/// Where the quads of the bytes from `position` on go, when each escape takes two bytes more.
[[nodiscard]] AVX2_FUNCTION inline __m128i* quadsAt(std::uint8_t* out, std::uint32_t escaped,
                                                    unsigned position) noexcept {
  return reinterpret_cast<__m128i*>(out + position + 2 * _mm_popcnt_u32(wide::below(escaped, position)));
}

/// Writes 32 bytes, two more for each escape. Touches at most `kEscapeOverrun` bytes beyond that.
/// @param characters  what the bytes show as that are not escaped
/// @param escaped     the bytes to escape, a bit each
AVX2_FUNCTION inline void storeEscaped(std::uint8_t* out, __m256i bytes, __m256i characters,
                                       std::uint32_t escaped) noexcept {
  const __m256i kNibble = wide::all(0x0F);
  const __m256i highDigits = hexDigits(_mm256_and_si256(_mm256_srli_epi16(bytes, 4), kNibble));
  const __m256i lowDigits = hexDigits(_mm256_and_si256(bytes, kNibble));
  const __m256i frontHeads = _mm256_unpacklo_epi8(characters, wide::all('='));
  const __m256i backHeads = _mm256_unpackhi_epi8(characters, wide::all('='));
  const __m256i frontDigits = _mm256_unpacklo_epi8(highDigits, lowDigits);
  const __m256i backDigits = _mm256_unpackhi_epi8(highDigits, lowDigits);
  // Unpacking works in halves: each vector holds four quads from the low half and four from the high half.
  const __m256i quads[4] = {_mm256_unpacklo_epi16(frontHeads, frontDigits),
                            _mm256_unpackhi_epi16(frontHeads, frontDigits),
                            _mm256_unpacklo_epi16(backHeads, backDigits), _mm256_unpackhi_epi16(backHeads, backDigits)};
  __m256i texts[4];
  for (unsigned i = 0; i < 4; ++i) {
    texts[i] = _mm256_shuffle_epi8(quads[i], quadRows(escaped >> (4 * i), escaped >> (4 * i + 16)));
  }
  for (unsigned i = 0; i < 4; ++i) {
    _mm_storeu_si128(quadsAt(out, escaped, 4 * i), _mm256_castsi256_si128(texts[i]));
  }
  for (unsigned i = 0; i < 4; ++i) {
    _mm_storeu_si128(quadsAt(out, escaped, 4 * i + 16), _mm256_extracti128_si256(texts[i], 1));
  }
}

}  // namespace avx2

#endif  // WIDE_AVX2

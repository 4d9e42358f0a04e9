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

/// What is written for four bytes of each half of a vector, as text and what is left over.
/// @param escaped  a bit for each byte of the vector, those of the quads lowest in each half
[[nodiscard]] AVX2_FUNCTION inline __m256i textOf(__m256i quads, std::uint32_t escaped) noexcept {
  const auto* const lowRow = reinterpret_cast<const __m128i*>(kQuadRows[escaped & 15].data());
  const auto* const highRow = reinterpret_cast<const __m128i*>(kQuadRows[escaped >> 16 & 15].data());
  const __m256i rows = _mm256_castsi128_si256(_mm_loadu_si128(lowRow));
  return _mm256_shuffle_epi8(quads, _mm256_inserti128_si256(rows, _mm_loadu_si128(highRow), 1));
}

/// Where the text of the bytes from `position` on goes, when each escape takes two bytes more.
[[nodiscard]] AVX2_FUNCTION inline __m128i* textAt(std::uint8_t* out, std::uint32_t escaped,
                                                   unsigned position) noexcept {
  return reinterpret_cast<__m128i*>(out + position + 2 * _mm_popcnt_u32(wide::below(escaped, position)));
}

/// Writes 32 bytes, two more for each escape. Touches at most `kEscapeOverrun` bytes beyond that.
/// @param characters  what the bytes show as that are not escaped
/// @param escaped     the bytes to escape, a bit each
[[gnu::always_inline]] AVX2_FUNCTION inline void storeEscaped(std::uint8_t* out, __m256i bytes, __m256i characters,
                                                              std::uint32_t escaped) noexcept {
  const __m256i kNibble = wide::all(0x0F);
  const __m256i highDigits = hexDigits(_mm256_and_si256(_mm256_srli_epi16(bytes, 4), kNibble));
  const __m256i lowDigits = hexDigits(_mm256_and_si256(bytes, kNibble));
  const __m256i frontHeads = _mm256_unpacklo_epi8(characters, wide::all('='));
  const __m256i backHeads = _mm256_unpackhi_epi8(characters, wide::all('='));
  const __m256i frontDigits = _mm256_unpacklo_epi8(highDigits, lowDigits);
  const __m256i backDigits = _mm256_unpackhi_epi8(highDigits, lowDigits);
  // Unpacking works in halves: each vector holds four quads from the low half and four from the high half.
  const __m256i first = textOf(_mm256_unpacklo_epi16(frontHeads, frontDigits), escaped);
  const __m256i second = textOf(_mm256_unpackhi_epi16(frontHeads, frontDigits), escaped >> 4);
  const __m256i third = textOf(_mm256_unpacklo_epi16(backHeads, backDigits), escaped >> 8);
  const __m256i fourth = textOf(_mm256_unpackhi_epi16(backHeads, backDigits), escaped >> 12);
  // In order, as what is left over of each gets overwritten by the next.
  _mm_storeu_si128(textAt(out, escaped, 0), _mm256_castsi256_si128(first));
  _mm_storeu_si128(textAt(out, escaped, 4), _mm256_castsi256_si128(second));
  _mm_storeu_si128(textAt(out, escaped, 8), _mm256_castsi256_si128(third));
  _mm_storeu_si128(textAt(out, escaped, 12), _mm256_castsi256_si128(fourth));
  _mm_storeu_si128(textAt(out, escaped, 16), _mm256_extracti128_si256(first, 1));
  _mm_storeu_si128(textAt(out, escaped, 20), _mm256_extracti128_si256(second, 1));
  _mm_storeu_si128(textAt(out, escaped, 24), _mm256_extracti128_si256(third, 1));
  _mm_storeu_si128(textAt(out, escaped, 28), _mm256_extracti128_si256(fourth, 1));
}

/// For 16 bytes that are all escaped: the shuffles that bring their high and their low digits to where they go in
/// each third of the text, and the "=" between them.
struct DenseText {
  std::array<std::array<std::uint8_t, 16>, 3> high;
  std::array<std::array<std::uint8_t, 16>, 3> low;
  std::array<std::array<std::uint8_t, 16>, 3> marks;
};

inline constexpr DenseText kDenseText = [] {
  DenseText text{};
  for (unsigned i = 0; i < 48; ++i) {
    const auto byte = static_cast<std::uint8_t>(i / 3);
    text.high[i / 16][i % 16] = i % 3 == 1 ? byte : 0x80;
    text.low[i / 16][i % 16] = i % 3 == 2 ? byte : 0x80;
    text.marks[i / 16][i % 16] = i % 3 == 0 ? '=' : 0;
  }
  return text;
}();

[[nodiscard]] AVX2_FUNCTION inline __m256i inBothHalves(const std::array<std::uint8_t, 16>& bytes) noexcept {
  return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data())));
}

/// A third of the text of each half of a vector.
template <unsigned kThird>
[[nodiscard]] AVX2_FUNCTION inline __m256i denseThird(__m256i highDigits, __m256i lowDigits) noexcept {
  const __m256i high = _mm256_shuffle_epi8(highDigits, inBothHalves(kDenseText.high[kThird]));
  const __m256i low = _mm256_shuffle_epi8(lowDigits, inBothHalves(kDenseText.low[kThird]));
  return _mm256_or_si256(_mm256_or_si256(high, low), inBothHalves(kDenseText.marks[kThird]));
}

/// Writes 32 bytes that are all escaped: 96 characters.
AVX2_FUNCTION inline void storeAllEscaped(std::uint8_t* out, __m256i bytes) noexcept {
  const __m256i kNibble = wide::all(0x0F);
  const __m256i highDigits = hexDigits(_mm256_and_si256(_mm256_srli_epi16(bytes, 4), kNibble));
  const __m256i lowDigits = hexDigits(_mm256_and_si256(bytes, kNibble));
  const __m256i first = denseThird<0>(highDigits, lowDigits);
  const __m256i second = denseThird<1>(highDigits, lowDigits);
  const __m256i third = denseThird<2>(highDigits, lowDigits);
  wide::store(out, _mm256_permute2x128_si256(first, second, 0x20));
  wide::store(out + 32, _mm256_permute2x128_si256(third, first, 0x30));
  wide::store(out + 64, _mm256_permute2x128_si256(second, third, 0x31));
}

}  // namespace avx2

#endif  // WIDE_AVX2

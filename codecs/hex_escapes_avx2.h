/// "=XX" and "%XX" escapes, 32 bytes at a time.
#pragma once

#include "codecs/hex_digits_avx2.h"
#include "codecs/hex_escape_rows.h"
#include "wide/vectors.h"

#ifdef WIDE_AVX2

namespace avx2 {

/// Writes what four bytes show as, and what is left over behind it.
/// @param escaped  which of the four are escaped, a bit each, moved one up
/// @return         behind the text
[[nodiscard]] AVX2_FUNCTION inline std::uint8_t* storeQuads(std::uint8_t* out, __m128i quads,
                                                            std::uint32_t escaped) noexcept {
  const auto* const row = reinterpret_cast<const __m128i*>(kQuadRows.data()->data() + std::size_t{escaped} * 8);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(quads, _mm_loadu_si128(row)));
  return out + 4 + 2 * static_cast<std::size_t>(_mm_popcnt_u32(escaped));
}

/// Writes 32 bytes, two more for each escape. Touches at most `kEscapeOverrun` bytes beyond that.
/// @param characters  what the bytes show as that are not escaped
/// @param escaped     the bytes to escape, a bit each
/// @param mark        what an escape begins with
[[gnu::always_inline]] AVX2_FUNCTION inline void storeEscaped(std::uint8_t* out, __m256i bytes, __m256i characters,
                                                              std::uint32_t escaped, std::uint8_t mark = '=') noexcept {
  const __m256i kNibble = wide::all(0x0F);
  const __m256i highDigits = hexDigits(_mm256_and_si256(_mm256_srli_epi16(bytes, 4), kNibble));
  const __m256i lowDigits = hexDigits(_mm256_and_si256(bytes, kNibble));
  const __m256i frontHeads = _mm256_unpacklo_epi8(characters, wide::all(mark));
  const __m256i backHeads = _mm256_unpackhi_epi8(characters, wide::all(mark));
  const __m256i frontDigits = _mm256_unpacklo_epi8(highDigits, lowDigits);
  const __m256i backDigits = _mm256_unpackhi_epi8(highDigits, lowDigits);
  // Unpacking works in halves: each vector holds four quads from the low half and four from the high half.
  const __m256i first = _mm256_unpacklo_epi16(frontHeads, frontDigits);
  const __m256i second = _mm256_unpackhi_epi16(frontHeads, frontDigits);
  const __m256i third = _mm256_unpacklo_epi16(backHeads, backDigits);
  const __m256i fourth = _mm256_unpackhi_epi16(backHeads, backDigits);
  // In order, as what is left over of each gets overwritten by the next.
  out = storeQuads(out, _mm256_castsi256_si128(first), escaped << 1 & 30);
  out = storeQuads(out, _mm256_castsi256_si128(second), escaped >> 3 & 30);
  out = storeQuads(out, _mm256_castsi256_si128(third), escaped >> 7 & 30);
  out = storeQuads(out, _mm256_castsi256_si128(fourth), escaped >> 11 & 30);
  out = storeQuads(out, _mm256_extracti128_si256(first, 1), escaped >> 15 & 30);
  out = storeQuads(out, _mm256_extracti128_si256(second, 1), escaped >> 19 & 30);
  out = storeQuads(out, _mm256_extracti128_si256(third, 1), escaped >> 23 & 30);
  (void)storeQuads(out, _mm256_extracti128_si256(fourth, 1), escaped >> 27 & 30);
}

/// The same bytes in both halves of a vector.
using BothHalves = std::array<std::uint8_t, 32>;

/// For 16 bytes that are all escaped, and each third of their text: the shuffle that brings the digits of some to
/// their places, and the places of the marks.
struct DenseThird {
  alignas(32) BothHalves digits;
  alignas(32) BothHalves marks;
};

/// The digits of the first third lie in bytes 0 to 7, those of the second in 4 to 11, those of the last in 8 to 15.
inline constexpr std::array<DenseThird, 3> kDenseThirds = [] {
  std::array<DenseThird, 3> thirds{};
  for (unsigned i = 0; i < 96; ++i) {
    const unsigned at = i % 48;
    DenseThird& third = thirds[at / 16];
    const unsigned place = i / 48 * 16 + at % 16;
    const unsigned digit = at / 3 * 2 + (at % 3 == 2 ? 1 : 0) - at / 16 * 8;
    third.digits[place] = static_cast<std::uint8_t>(at % 3 == 0 ? 0x80 : digit);
    third.marks[place] = at % 3 == 0 ? 0xFF : 0;
  }
  return thirds;
}();

[[nodiscard]] AVX2_FUNCTION inline __m256i denseText(__m256i digits, const DenseThird& third, __m256i marks) noexcept {
  const __m256i text = _mm256_shuffle_epi8(digits, wide::load(third.digits.data()));
  return _mm256_or_si256(text, _mm256_and_si256(marks, wide::load(third.marks.data())));
}

/// Writes 32 bytes that are all escaped: 96 characters.
AVX2_FUNCTION inline void storeAllEscaped(std::uint8_t* out, __m256i bytes, std::uint8_t mark = '=') noexcept {
  const __m256i kNibble = wide::all(0x0F);
  const __m256i highDigits = hexDigits(_mm256_and_si256(_mm256_srli_epi16(bytes, 4), kNibble));
  const __m256i lowDigits = hexDigits(_mm256_and_si256(bytes, kNibble));
  const __m256i front = _mm256_unpacklo_epi8(highDigits, lowDigits);
  const __m256i back = _mm256_unpackhi_epi8(highDigits, lowDigits);
  const __m256i first = denseText(front, kDenseThirds[0], wide::all(mark));
  const __m256i second = denseText(_mm256_alignr_epi8(back, front, 8), kDenseThirds[1], wide::all(mark));
  const __m256i third = denseText(back, kDenseThirds[2], wide::all(mark));
  wide::store(out, _mm256_permute2x128_si256(first, second, 0x20));
  wide::store(out + 32, _mm256_permute2x128_si256(third, first, 0x30));
  wide::store(out + 64, _mm256_permute2x128_si256(second, third, 0x31));
}

}  // namespace avx2

#endif  // WIDE_AVX2

/// Hexadecimal digits in vectors: values to characters and back.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include <immintrin.h>

#include "codecs/hex_digits.h"

namespace avx2 {

/// The upper-case digit of each value from 0 to 15.
[[nodiscard]] AVX2_FUNCTION inline __m128i hexDigits(__m128i values) noexcept {
  return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(kHexDigits.data())), values);
}
[[nodiscard]] AVX2_FUNCTION inline __m256i hexDigits(__m256i values) noexcept {
  const __m128i digits = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kHexDigits.data()));
  return _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(digits), values);
}

/// What each character counts as when it is read as a digit: 0 to 15 for digits of either case, 0 for anything else.
[[nodiscard]] AVX2_FUNCTION inline __m256i hexValues(__m256i characters) noexcept {
  // Each look-up goes by the low nibble, and answers 0 for bytes of 0x80 and above; the high nibble then selects.
  const __m256i kDecimal = _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0, 0, 0, 0));
  const __m256i kLetter =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 10, 11, 12, 13, 14, 15, 0, 0, 0, 0, 0, 0, 0, 0, 0));
  const __m256i highNibble = _mm256_and_si256(characters, _mm256_set1_epi8(static_cast<char>(0xF0)));
  const __m256i lowerCase = _mm256_or_si256(highNibble, _mm256_set1_epi8(0x20));
  const __m256i inDecimalRow = _mm256_cmpeq_epi8(highNibble, _mm256_set1_epi8(0x30));
  const __m256i inLetterRow = _mm256_cmpeq_epi8(lowerCase, _mm256_set1_epi8(0x60));
  return _mm256_or_si256(_mm256_and_si256(_mm256_shuffle_epi8(kDecimal, characters), inDecimalRow),
                         _mm256_and_si256(_mm256_shuffle_epi8(kLetter, characters), inLetterRow));
}

}  // namespace avx2

#endif  // WIDE_AVX2

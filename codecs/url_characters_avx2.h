/// What percent-encoding makes of 32 bytes at once.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include "codecs/url_characters.h"
#include "wide/vectors.h"

namespace url::avx2 {

/// The rows of the bytes that are not escaped, in both halves.
AVX2_FUNCTION inline __m256i literalRowsFor(Options options) noexcept {
  const std::uint8_t* const rows = kCharacters[options.index()].literalRows.data();
  return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(rows)));
}

/// The bytes that are escaped, a bit each. A byte of 0x80 or above finds nothing in the rows.
AVX2_FUNCTION inline std::uint32_t escapedIn(__m256i bytes, __m256i literalRows) noexcept {
  const __m256i kBitOfHighNibble =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0));
  const __m256i highNibbles = _mm256_and_si256(_mm256_srli_epi16(bytes, 4), wide::all(0x0F));
  const __m256i literal =
      _mm256_and_si256(_mm256_shuffle_epi8(literalRows, bytes), _mm256_shuffle_epi8(kBitOfHighNibble, highNibbles));
  return wide::bits(_mm256_cmpeq_epi8(literal, _mm256_setzero_si256()));
}

/// The bytes as they show where they are not escaped: only a space can differ then, and is a "+".
AVX2_FUNCTION inline __m256i charactersOf(__m256i bytes) noexcept {
  return _mm256_blendv_epi8(bytes, wide::all('+'), _mm256_cmpeq_epi8(bytes, wide::all(' ')));
}

}  // namespace url::avx2

#endif  // WIDE_AVX2

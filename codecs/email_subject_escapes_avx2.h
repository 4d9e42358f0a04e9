/// What the encoded word of a subject makes of 32 bytes at once.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include "wide/vectors.h"

namespace email_subject::avx2 {

/// The bytes that are escaped in an encoded word.
AVX2_FUNCTION inline std::uint32_t escapes(__m256i bytes) noexcept {
  const __m256i marks =
      _mm256_or_si256(_mm256_cmpeq_epi8(bytes, wide::all('=')), _mm256_cmpeq_epi8(bytes, wide::all('_')));
  return wide::bits(_mm256_or_si256(bytes, marks));
}

/// The bytes as they show where they are not escaped.
AVX2_FUNCTION inline __m256i charactersOf(__m256i bytes) noexcept {
  return _mm256_blendv_epi8(bytes, wide::all('_'), _mm256_cmpeq_epi8(bytes, wide::all(' ')));
}

}  // namespace email_subject::avx2

#endif  // WIDE_AVX2

/// Lookups in the entity table: linear scans of its columns, in table order.
#pragma once

#include <cstddef>
#include <cstdint>

#include "markup/entity_columns.h"
#include "wide/cpu.h"
#ifdef WIDE_AVX2
#include <immintrin.h>
#endif

namespace entities {

/// Records that are compared together.
inline constexpr std::size_t kStep = 16;
static_assert(kColumnSize % kStep == 0);

/// The position of the first of the 16 records among which a code would be. Codes ascend, so that a step is passed when
/// its last code is too low; the filling ends the scan at the latest.
[[nodiscard]] inline std::size_t stepOf(std::uint32_t code) noexcept {
  std::size_t position = 0;
  while (kCodes[position + kStep - 1] < code) position += kStep;
  return position;
}

namespace scalar {

/// The position of the record for `code`; if there is none, that of the first one with a higher code.
/// @param code  one that `mayHaveRecord`
[[nodiscard]] inline std::size_t positionOf(std::uint32_t code) noexcept {
  const std::size_t step = stepOf(code);
  std::uint16_t below = 0;
  for (std::size_t i = 0; i < kStep; ++i) {  // a loop without branches, for the compiler to widen
    below = static_cast<std::uint16_t>(below + (kCodes[step + i] < static_cast<std::uint16_t>(code) ? 1 : 0));
  }
  return step + below;
}

/// The code point of an entity, or 0 when there is none of that name.
/// @param name  not empty
[[nodiscard]] inline std::uint32_t codeOf(PackedName name) noexcept {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (kNames[i] == name) return kCodes[i];
  }
  return 0;
}

}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {

[[nodiscard]] AVX2_FUNCTION inline std::size_t positionOf(std::uint32_t code) noexcept {
  const std::size_t step = stepOf(code);
  const __m256i codes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(&kCodes[step]));
  const __m256i below = _mm256_cmpgt_epi16(_mm256_set1_epi16(static_cast<short>(code)), codes);
  return step + _tzcnt_u32(~static_cast<unsigned>(_mm256_movemask_epi8(below))) / 2;
}

[[nodiscard]] AVX2_FUNCTION inline std::uint32_t codeOf(PackedName name) noexcept {
  const __m256i wanted = _mm256_set1_epi64x(static_cast<long long>(name));
  for (std::size_t i = 0; i < kColumnSize; i += kStep) {
    const auto* const names = reinterpret_cast<const __m256i*>(&kNames[i]);
    const __m256i equal0 = _mm256_cmpeq_epi64(_mm256_loadu_si256(names), wanted);
    const __m256i equal1 = _mm256_cmpeq_epi64(_mm256_loadu_si256(names + 1), wanted);
    const __m256i equal2 = _mm256_cmpeq_epi64(_mm256_loadu_si256(names + 2), wanted);
    const __m256i equal3 = _mm256_cmpeq_epi64(_mm256_loadu_si256(names + 3), wanted);
    const __m256i any = _mm256_or_si256(_mm256_or_si256(equal0, equal1), _mm256_or_si256(equal2, equal3));
    if (_mm256_testz_si256(any, any) != 0) continue;
    const int found =
        _mm256_movemask_pd(_mm256_castsi256_pd(equal0)) | _mm256_movemask_pd(_mm256_castsi256_pd(equal1)) << 4 |
        _mm256_movemask_pd(_mm256_castsi256_pd(equal2)) << 8 | _mm256_movemask_pd(_mm256_castsi256_pd(equal3)) << 12;
    return kCodes[i + _tzcnt_u32(static_cast<unsigned>(found))];
  }
  return 0;
}

}  // namespace avx2
#endif

}  // namespace entities

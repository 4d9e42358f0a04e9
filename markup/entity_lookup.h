/// Lookups in the entity table: linear scans of its columns, in table order.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "markup/entity_columns.h"
#include "wide/cpu.h"
#ifdef WIDE_AVX2
#include <immintrin.h>
#endif
#ifdef WIDE_NEON
#include "wide/neon.h"
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

#ifdef WIDE_NEON
namespace neon {

[[nodiscard]] NEON_FUNCTION inline std::size_t positionOf(std::uint32_t code) noexcept {
  const std::size_t step = stepOf(code);
  const uint16x8_t wanted = vdupq_n_u16(static_cast<std::uint16_t>(code));
  const uint16x8_t low = vcltq_u16(vld1q_u16(&kCodes[step]), wanted);
  const uint16x8_t high = vcltq_u16(vld1q_u16(&kCodes[step + 8]), wanted);
  return step + static_cast<std::size_t>(std::countr_one(wide::bits(vcombine_u8(vmovn_u16(low), vmovn_u16(high)))));
}

/// Two names that are equal to the wanted one, the halves of a name by themselves.
[[nodiscard]] NEON_FUNCTION inline uint32x4_t equalHalves(std::size_t position, uint32x4_t wanted) noexcept {
  return vceqq_u32(vreinterpretq_u32_u64(vld1q_u64(&kNames[position])), wanted);
}

[[nodiscard]] NEON_FUNCTION inline std::uint32_t codeOf(PackedName name) noexcept {
  const uint32x4_t wanted = vreinterpretq_u32_u64(vdupq_n_u64(name));
  for (std::size_t i = 0; i < kColumnSize; i += 8) {
    // Each half of a name becomes a byte; both have to be equal.
    const uint16x8_t front = vcombine_u16(vmovn_u32(equalHalves(i, wanted)), vmovn_u32(equalHalves(i + 2, wanted)));
    const uint16x8_t back = vcombine_u16(vmovn_u32(equalHalves(i + 4, wanted)), vmovn_u32(equalHalves(i + 6, wanted)));
    const uint8x16_t halves = vcombine_u8(vmovn_u16(front), vmovn_u16(back));
    const uint8x16_t equal = vandq_u8(halves, vrev16q_u8(halves));
    if (wide::any(equal)) return kCodes[i + static_cast<std::size_t>(std::countr_zero(wide::bits(equal))) / 2];
  }
  return 0;
}

}  // namespace neon
#endif

}  // namespace entities

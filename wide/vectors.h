/// Steps that AVX2 kernels share.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include <array>
#include <cstdint>
#include <immintrin.h>

namespace wide {

/// Bytes in one vector.
inline constexpr int kVector = 32;

AVX2_FUNCTION inline __m256i load(const std::uint8_t* bytes) noexcept {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
}

AVX2_FUNCTION inline void store(std::uint8_t* bytes, __m256i vector) noexcept {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(bytes), vector);
}

AVX2_FUNCTION inline __m256i all(std::uint8_t byte) noexcept { return _mm256_set1_epi8(static_cast<char>(byte)); }

/// The high bit of each byte, the first byte's lowest.
AVX2_FUNCTION inline std::uint32_t bits(__m256i mask) noexcept {
  return static_cast<std::uint32_t>(_mm256_movemask_epi8(mask));
}

/// One bit for each of 64 bytes, in two vectors, that is the given one.
AVX2_FUNCTION inline std::uint64_t placesOf(std::uint8_t byte, __m256i low, __m256i high) noexcept {
  const __m256i wanted = all(byte);
  return bits(_mm256_cmpeq_epi8(low, wanted)) | std::uint64_t{bits(_mm256_cmpeq_epi8(high, wanted))} << kVector;
}

/// The bits below a position from 0 to 32.
AVX2_FUNCTION inline std::uint32_t below(std::uint32_t mask, unsigned position) noexcept {
  return _bzhi_u32(mask, position);
}

}  // namespace wide

#endif  // WIDE_AVX2

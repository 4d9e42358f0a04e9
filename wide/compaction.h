/// Dropping bytes: those of a vector that are kept move together, in order.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include <bit>
#include <cstddef>
#include <cstdint>
#include <immintrin.h>

#include "wide/move_together.h"
#include "wide/partial_vector.h"

namespace wide {

/// Moves the bytes of each half whose bit in `keep` is set to the front of that half.
[[nodiscard]] AVX2_FUNCTION inline __m128i movedTogetherByHalves(__m128i bytes, std::uint32_t keep) noexcept {
  const std::uint64_t* const low = &kMoveTogether[keep & 0xFF];
  const std::uint64_t* const high = &kMoveTogether[keep >> 8 & 0xFF];
  const __m128i lowControl = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(low));
  const __m128i highControl = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(high));
  const __m128i kUpperHalf = _mm_set_epi32(0x0808'0808, 0x0808'0808, 0, 0);
  return _mm_shuffle_epi8(bytes, _mm_or_si128(_mm_unpacklo_epi64(lowControl, highControl), kUpperHalf));
}

/// Writes the bytes whose bit in `keep` is set, and up to 16 bytes from `to` on.
/// @return behind the last byte kept
[[nodiscard]] AVX2_FUNCTION inline std::uint8_t* storeKept16(std::uint8_t* to, __m128i bytes,
                                                             std::uint32_t keep) noexcept {
  const __m128i moved = movedTogetherByHalves(bytes, keep);
  _mm_storel_epi64(reinterpret_cast<__m128i*>(to), moved);
  to += std::popcount(keep & 0xFF);
  _mm_storeh_pi(reinterpret_cast<__m64*>(to), _mm_castsi128_ps(moved));
  return to + std::popcount(keep >> 8 & 0xFF);
}

/// Writes the bytes whose bit in `keep` is set, and up to 32 bytes from `to` on.
/// @return behind the last byte kept
[[nodiscard]] AVX2_FUNCTION inline std::uint8_t* storeKept(std::uint8_t* to, __m256i bytes,
                                                           std::uint32_t keep) noexcept {
  to = storeKept16(to, _mm256_castsi256_si128(bytes), keep & 0xFFFF);
  return storeKept16(to, _mm256_extracti128_si256(bytes, 1), keep >> 16);
}

/// As `storeKept`, but writes nothing beyond the bytes kept. For the end of an output.
/// @return behind the last byte kept
[[nodiscard]] AVX2_FUNCTION inline std::uint8_t* storeKeptOnly(std::uint8_t* to, __m256i bytes,
                                                               std::uint32_t keep) noexcept {
  __m128i half = _mm256_castsi256_si128(bytes);
  for (int halves = 0; halves < 2 && keep != 0; ++halves) {
    const __m128i moved = movedTogetherByHalves(half, keep);
    const auto front = static_cast<std::size_t>(std::popcount(keep & 0xFF));
    const auto back = static_cast<std::size_t>(std::popcount(keep >> 8 & 0xFF));
    storeBelow16(to, moved, front);
    storeBelow16(to + front, _mm_unpackhi_epi64(moved, moved), back);
    to += front + back;
    half = _mm256_extracti128_si256(bytes, 1);
    keep >>= 16;
  }
  return to;
}

/// A vector of bytes that are 0xFF where the bit in `bits` is set and 0 elsewhere.
[[nodiscard]] AVX2_FUNCTION inline __m256i bytesOfBits(std::uint32_t bits) noexcept {
  const __m256i kByteOfEach =
      _mm256_setr_epi64x(0, 0x0101'0101'0101'0101, 0x0202'0202'0202'0202, 0x0303'0303'0303'0303);
  const __m256i kBitOfEach = _mm256_set1_epi64x(static_cast<long long>(0x8040'2010'0804'0201));
  const __m256i spread = _mm256_shuffle_epi8(_mm256_set1_epi32(static_cast<int>(bits)), kByteOfEach);
  return _mm256_cmpeq_epi8(_mm256_and_si256(spread, kBitOfEach), kBitOfEach);
}

}  // namespace wide

#endif  // WIDE_AVX2

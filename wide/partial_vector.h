/// The ends of inputs and outputs that fill no whole vector, read and written without touching a byte beyond them.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <immintrin.h>

namespace wide {

/// Shuffle controls in one row: the 16 bytes from offset k on move bytes k to 15 to the front and clear the rest.
inline constexpr std::array<std::uint8_t, 32> kMoveToFront = [] {
  std::array<std::uint8_t, 32> controls{};
  for (unsigned i = 0; i < 32; ++i) controls[i] = static_cast<std::uint8_t>(i < 16 ? i : 0x80);
  return controls;
}();

/// Reads `count` bytes, 0 to 15, into the front of a vector; the rest of it is zero.
[[nodiscard]] AVX2_FUNCTION inline __m128i loadBelow16(const std::uint8_t* from, std::size_t count) noexcept {
  if (count >= 8) {
    const __m128i front = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from));
    const __m128i back = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from + count - 8));
    const __m128i overlap = _mm_cvtsi32_si128(static_cast<int>(8 * (16 - count)));
    return _mm_unpacklo_epi64(front, _mm_srl_epi64(back, overlap));
  }
  if (count >= 4) {
    std::int32_t front = 0;
    std::int32_t back = 0;
    std::memcpy(&front, from, 4);
    std::memcpy(&back, from + count - 4, 4);
    const __m128i position = _mm_cvtsi32_si128(static_cast<int>(8 * (count - 4)));
    return _mm_or_si128(_mm_cvtsi32_si128(front), _mm_sll_epi64(_mm_cvtsi32_si128(back), position));
  }
  if (count == 0) return _mm_setzero_si128();
  const unsigned first = from[0];
  const unsigned middle = static_cast<unsigned>(from[count / 2]) << (8 * (count / 2));
  const unsigned last = static_cast<unsigned>(from[count - 1]) << (8 * (count - 1));
  return _mm_cvtsi32_si128(static_cast<int>(first | middle | last));
}

/// Reads `count` bytes, 0 to 32, into the front of a vector; the rest of it is zero.
[[nodiscard]] AVX2_FUNCTION inline __m256i loadUpTo32(const std::uint8_t* from, std::size_t count) noexcept {
  if (count < 16) return _mm256_zextsi128_si256(loadBelow16(from, count));
  const __m128i front = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
  const __m128i back = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + count - 16));
  const std::uint8_t* const overlap = kMoveToFront.data() + (32 - count);
  const __m128i moved = _mm_shuffle_epi8(back, _mm_loadu_si128(reinterpret_cast<const __m128i*>(overlap)));
  return _mm256_inserti128_si256(_mm256_castsi128_si256(front), moved, 1);
}

/// Writes the first `count` bytes of a vector, 0 to 15.
AVX2_FUNCTION inline void storeBelow16(std::uint8_t* to, __m128i bytes, std::size_t count) noexcept {
  if ((count & 8) != 0) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), bytes);
    bytes = _mm_srli_si128(bytes, 8);
    to += 8;
  }
  if ((count & 4) != 0) {
    const std::int32_t four = _mm_cvtsi128_si32(bytes);
    std::memcpy(to, &four, 4);
    bytes = _mm_srli_si128(bytes, 4);
    to += 4;
  }
  auto rest = static_cast<unsigned>(_mm_cvtsi128_si32(bytes));
  for (count &= 3; count != 0; --count) {
    *to++ = static_cast<std::uint8_t>(rest);
    rest >>= 8;
  }
}

/// Writes the first `count` bytes of a vector, 0 to 32.
AVX2_FUNCTION inline void storeUpTo32(std::uint8_t* to, __m256i bytes, std::size_t count) noexcept {
  if (count >= 32) return _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), bytes);
  __m128i rest = _mm256_castsi256_si128(bytes);
  if (count >= 16) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), rest);
    rest = _mm256_extracti128_si256(bytes, 1);
    to += 16;
  }
  storeBelow16(to, rest, count & 15);
}

}  // namespace wide

#endif  // WIDE_AVX2

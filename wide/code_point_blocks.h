/// Code points narrowed to bytes a block at a time, for AVX2 kernels that look for ASCII characters.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2
#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace wide {

/// What a code point becomes that is no ASCII character. Units are read as signed numbers, so those of 2^31 and more
/// become the lowest byte of the range.
enum class Nearest {
  kSignedByte,    ///< 0x7F, or 0x80 for 2^31 and more
  kUnsignedByte,  ///< 0x80 to 0xFF, or 0x00 for 2^31 and more
};

template <Nearest kNearest>
[[nodiscard]] AVX2_FUNCTION inline __m128i narrowed(__m128i a, __m128i b, __m128i c, __m128i d) noexcept {
  const __m128i ab = _mm_packs_epi32(a, b);
  const __m128i cd = _mm_packs_epi32(c, d);
  return kNearest == Nearest::kSignedByte ? _mm_packs_epi16(ab, cd) : _mm_packus_epi16(ab, cd);
}

/// 8 code points as bytes, the first in the low one.
template <Nearest kNearest>
[[nodiscard]] AVX2_FUNCTION inline std::uint64_t narrowed8(const char32_t* text) noexcept {
  const auto* const quads = reinterpret_cast<const __m128i*>(text);
  const __m128i none = _mm_setzero_si128();
  std::uint64_t bytes;
  _mm_storel_epi64(reinterpret_cast<__m128i*>(&bytes),
                   narrowed<kNearest>(_mm_loadu_si128(quads), _mm_loadu_si128(quads + 1), none, none));
  return bytes;
}

/// 16 code points as bytes.
template <Nearest kNearest>
[[nodiscard]] AVX2_FUNCTION inline __m128i narrowed16(const char32_t* text) noexcept {
  const auto* const quads = reinterpret_cast<const __m128i*>(text);
  return narrowed<kNearest>(_mm_loadu_si128(quads), _mm_loadu_si128(quads + 1), _mm_loadu_si128(quads + 2),
                            _mm_loadu_si128(quads + 3));
}

/// The last code points of a text, fewer than a block of 16, with zeros behind them.
struct alignas(32) CodePointTail {
  char32_t block[16];

  /// Reads `count` code points and nothing behind them.
  AVX2_FUNCTION CodePointTail(const char32_t* text, std::size_t count) noexcept {
    static constexpr std::int32_t kReadFirst[32] = {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
    const auto* const mask = reinterpret_cast<const __m256i*>(kReadFirst + 16 - count);
    const auto* const units = reinterpret_cast<const int*>(text);
    auto* const octets = reinterpret_cast<__m256i*>(block);
    _mm256_store_si256(octets, _mm256_maskload_epi32(units, _mm256_loadu_si256(mask)));
    _mm256_store_si256(octets + 1, _mm256_maskload_epi32(units + 8, _mm256_loadu_si256(mask + 1)));
  }
};

/// 32 code points as bytes.
template <Nearest kNearest>
[[nodiscard]] AVX2_FUNCTION inline __m256i narrowed32(const char32_t* text) noexcept {
  const auto* const octets = reinterpret_cast<const __m256i*>(text);
  const __m256i ab = _mm256_packs_epi32(_mm256_loadu_si256(octets), _mm256_loadu_si256(octets + 1));
  const __m256i cd = _mm256_packs_epi32(_mm256_loadu_si256(octets + 2), _mm256_loadu_si256(octets + 3));
  const __m256i mixed = kNearest == Nearest::kSignedByte ? _mm256_packs_epi16(ab, cd) : _mm256_packus_epi16(ab, cd);
  // Packing works on each half by itself; this brings the groups of four back into order.
  return _mm256_permutevar8x32_epi32(mixed, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

}  // namespace wide
#endif  // WIDE_AVX2

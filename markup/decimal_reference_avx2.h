/// Decimal character references of a block of code points.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_AVX2
#include <cstdint>
#include <cstring>
#include <immintrin.h>

namespace markup {

/// Room for the references to 16 code points from U+0064 to U+F423F, three to six digits each.
class DecimalReferences {
 public:
  /// Code points of another number of digits come out wrong.
  [[nodiscard]] static bool covers(char32_t codePoint) noexcept { return codePoint - 100 <= 999'999 - 100; }

  AVX2_FUNCTION void compute(const char32_t* block) noexcept {
    for (int i = 0; i < 16; i += 4) {
      const __m128i four = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + i));
      computeFour(_mm256_cvtepu32_epi64(four), i);
    }
  }

  /// Writes the reference to a code point of the block; returns the end.
  [[nodiscard]] std::uint8_t* write(unsigned index, std::uint8_t* out) const noexcept {
    std::memcpy(out, &text_[index], 8);
    out += length_[index];
    *out++ = ';';
    return out;
  }

 private:
  /// The scalar algorithm in each 64-bit lane.
  AVX2_FUNCTION void computeFour(__m256i codePoints, int index) noexcept {
    // Divides by 10,000: exact below 4.9e8.
    const __m256i high = _mm256_srli_epi64(_mm256_mul_epu32(codePoints, _mm256_set1_epi64x(109'951'163)), 40);
    const __m256i low = _mm256_sub_epi64(codePoints, _mm256_mul_epu32(high, _mm256_set1_epi64x(10'000)));
    const __m256i fours = _mm256_or_si256(high, _mm256_slli_epi64(low, 32));
    const __m256i hundreds = _mm256_srli_epi16(_mm256_mulhi_epu16(fours, _mm256_set1_epi16(5'243)), 3);
    const __m256i rest = _mm256_sub_epi16(fours, _mm256_mullo_epi16(hundreds, _mm256_set1_epi16(100)));
    const __m256i twos = _mm256_or_si256(hundreds, _mm256_slli_epi64(rest, 16));
    const __m256i tens = _mm256_srli_epi16(_mm256_mullo_epi16(twos, _mm256_set1_epi16(103)), 10);
    const __m256i ones = _mm256_sub_epi16(twos, _mm256_mullo_epi16(tens, _mm256_set1_epi16(10)));
    const __m256i digits = _mm256_or_si256(_mm256_or_si256(tens, _mm256_slli_epi16(ones, 8)), _mm256_set1_epi8('0'));

    // The first two of eight digits are zeros; two bytes in front of the digits are what "&#" needs.
    const __m256i missing = _mm256_add_epi64(
        _mm256_add_epi64(_mm256_cmpgt_epi64(codePoints, _mm256_set1_epi64x(999)),
                         _mm256_cmpgt_epi64(codePoints, _mm256_set1_epi64x(9'999))),
        _mm256_add_epi64(_mm256_cmpgt_epi64(codePoints, _mm256_set1_epi64x(99'999)), _mm256_set1_epi64x(3)));
    const __m256i shifted = _mm256_srlv_epi64(digits, _mm256_slli_epi64(missing, 3));
    const __m256i text = _mm256_blend_epi16(shifted, _mm256_set1_epi16('&' | '#' << 8), 0x11);
    _mm256_store_si256(reinterpret_cast<__m256i*>(text_ + index), text);
    _mm256_store_si256(reinterpret_cast<__m256i*>(length_ + index), _mm256_sub_epi64(_mm256_set1_epi64x(8), missing));
  }

  alignas(32) std::uint64_t text_[16];
  alignas(32) std::uint64_t length_[16];
};

}  // namespace markup
#endif  // WIDE_AVX2

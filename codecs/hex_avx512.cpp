/// The hex codec in vectors of 64 characters.
#include "codecs/hex.h"

#ifdef WIDE_AVX512

#include <immintrin.h>

namespace {

/// Characters that one step reads.
constexpr std::size_t kStep = 128;

AVX512_FUNCTION inline __m512i all(int byte) noexcept { return _mm512_set1_epi8(static_cast<char>(byte)); }

/// What each character counts as: its low nibble, nine more for letters, 0 where it is no digit.
AVX512_FUNCTION inline __m512i valuesOf(__m512i characters) noexcept {
  const __m512i fromZero = _mm512_sub_epi8(characters, all('0'));
  const __m512i fromA = _mm512_sub_epi8(_mm512_or_si512(characters, all(0x20)), all('a'));
  const __mmask64 decimal = _mm512_cmplt_epu8_mask(fromZero, all(10));
  const __mmask64 letter = _mm512_cmplt_epu8_mask(fromA, all(6));
  return _mm512_mask_add_epi8(_mm512_maskz_mov_epi8(decimal, fromZero), letter, fromA, all(10));
}

/// The 32 bytes that 64 characters spell.
AVX512_FUNCTION inline __m256i bytesOf(const std::uint8_t* characters) noexcept {
  const __m512i pairs = _mm512_maddubs_epi16(valuesOf(_mm512_loadu_si512(characters)), _mm512_set1_epi16(0x0110));
  return _mm512_maskz_cvtepi16_epi8(0xFFFF'FFFF, pairs);
}

}  // namespace

AVX512_FUNCTION void hex::avx512::decode(ByteView digits, ByteSpan bytes) noexcept {
  const std::uint8_t* const in = digits.data();
  std::size_t i = 0;
  for (; 2 * (bytes.size() - i) >= kStep; i += kStep / 2) {
    std::uint8_t* const out = bytes.data() + i;
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), bytesOf(in + 2 * i));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + kStep / 4), bytesOf(in + 2 * i + kStep / 2));
  }
  avx2::decode(digits.subspan(2 * i), bytes.subspan(i));
}

#endif  // WIDE_AVX512

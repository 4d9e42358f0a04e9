/// The hex codec in vectors of 64 characters.
#include "codecs/hex.h"

#ifdef WIDE_AVX512

#include <immintrin.h>

#include "codecs/hex_digits.h"

namespace {

/// Characters that one step reads or writes.
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

/// Writes the 64 digits of 32 bytes.
AVX512_FUNCTION inline void storeDigits(std::uint8_t* out, const std::uint8_t* bytes, __m512i digits) noexcept {
  const __m256i block = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
  const __m512i spread = _mm512_maskz_cvtepu8_epi16(0xFFFF'FFFF, block);
  const __m512i nibbles = _mm512_or_si512(_mm512_srli_epi16(spread, 4), _mm512_slli_epi16(spread, 8));
  _mm512_storeu_si512(out, _mm512_shuffle_epi8(digits, _mm512_and_si512(nibbles, all(0x0F))));
}

}  // namespace

AVX512_FUNCTION void hex::avx512::encode(ByteView bytes, ByteSpan digits) noexcept {
  const __m128i sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kHexDigits.data()));
  const __m512i table = _mm512_maskz_broadcast_i32x4(0xFFFF, sixteen);
  std::size_t i = 0;
  for (; bytes.size() - i >= kStep / 2; i += kStep / 2) {
    storeDigits(digits.data() + 2 * i, bytes.data() + i, table);
    storeDigits(digits.data() + 2 * i + kStep / 2, bytes.data() + i + kStep / 4, table);
  }
  avx2::encode(bytes.subspan(i), digits.subspan(2 * i));
}

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

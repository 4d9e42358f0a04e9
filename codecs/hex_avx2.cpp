/// The hex codec in vectors of 32 characters.
#include "codecs/hex.h"

#ifdef WIDE_AVX2

#include "codecs/hex_digits_avx2.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using wide::load;
using wide::store;

/// The 32 digits of 16 bytes.
AVX2_FUNCTION inline __m256i digitsOf(__m128i bytes) noexcept {
  const __m256i spread = _mm256_cvtepu8_epi16(bytes);
  const __m256i nibbles = _mm256_or_si256(_mm256_srli_epi16(spread, 4), _mm256_slli_epi16(spread, 8));
  return avx2::hexDigits(_mm256_and_si256(nibbles, wide::all(0x0F)));
}

AVX2_FUNCTION inline __m256i digitsOf16(const std::uint8_t* bytes) noexcept {
  return digitsOf(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)));
}

/// The 16 bytes that 32 characters spell, each in the low half of a 16-bit unit.
AVX2_FUNCTION inline __m256i pairsOf(__m256i characters) noexcept {
  return _mm256_maddubs_epi16(avx2::hexValues(characters), _mm256_set1_epi16(0x0110));
}

/// The bytes in the low halves of two vectors of 16-bit units.
AVX2_FUNCTION inline __m256i packed(__m256i front, __m256i back) noexcept {
  return _mm256_permute4x64_epi64(_mm256_packus_epi16(front, back), _MM_SHUFFLE(3, 1, 2, 0));
}

/// The 16 bytes that 32 characters spell.
AVX2_FUNCTION inline __m128i bytesOf(__m256i characters) noexcept {
  return _mm256_castsi256_si128(packed(pairsOf(characters), _mm256_setzero_si256()));
}

AVX2_FUNCTION inline void storeBytesOf(std::uint8_t* to, const std::uint8_t* characters) noexcept {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytesOf(load(characters)));
}

}  // namespace

AVX2_FUNCTION void hex::avx2::encode(ByteView bytes, ByteSpan digits) noexcept {
  const std::uint8_t* const in = bytes.data();
  std::uint8_t* const out = digits.data();
  const std::size_t count = bytes.size();
  if (count < 16) return wide::storeUpTo32(out, digitsOf(wide::loadBelow16(in, count)), 2 * count);
  for (std::size_t i = 0; i + 16 < count; i += 16) store(out + 2 * i, digitsOf16(in + i));
  store(out + 2 * count - 32, digitsOf16(in + count - 16));  // the last 16 bytes, some of them once more
}

AVX2_FUNCTION void hex::avx2::decode(ByteView digits, ByteSpan bytes) noexcept {
  const std::uint8_t* const in = digits.data();
  std::uint8_t* const out = bytes.data();
  const std::size_t count = bytes.size();
  if (count < 16) return wide::storeBelow16(out, bytesOf(wide::loadUpTo32(in, 2 * count)), count);
  std::size_t i = 0;
  for (; i + 32 <= count; i += 32) {
    store(out + i, packed(pairsOf(load(in + 2 * i)), pairsOf(load(in + 2 * i + 32))));
  }
  if (i + 16 < count) storeBytesOf(out + i, in + 2 * i);
  storeBytesOf(out + count - 16, in + 2 * count - 32);  // the last 16 bytes, some of them once more
}

#endif  // WIDE_AVX2

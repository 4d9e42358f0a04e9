/// Byte ranges, 32 bytes at a time.
#include "analysis/character_classes.h"

#ifdef WIDE_AVX2

#include "wide/vectors.h"

namespace {

using wide::all;
using wide::load;

constexpr std::size_t kVector = wide::kVector;

/// The bytes from 0x20 on, seen as signed: printable ones as they are, as others are negative then; those above 0x7F
/// too with the sign bit flipped.
template <std::uint8_t kFlipped>
AVX2_FUNCTION inline __m256i loadFlipped(const std::uint8_t* bytes) noexcept {
  return _mm256_xor_si256(load(bytes), all(kFlipped));
}

template <std::uint8_t kFlipped>
AVX2_FUNCTION inline __m256i areInside(__m256i flipped) noexcept {
  constexpr std::uint8_t kBelowSpace = 0x1F;
  return _mm256_cmpgt_epi8(flipped, all(kBelowSpace ^ kFlipped));
}

template <std::uint8_t kFlipped>
AVX2_FUNCTION inline bool areAllInside(__m256i flipped) noexcept {
  return wide::bits(areInside<kFlipped>(flipped)) == 0xFFFF'FFFF;
}

template <std::uint8_t kFlipped>
AVX2_FUNCTION bool areAllInside(ByteView bytes) noexcept {
  const std::uint8_t* const in = bytes.data();
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 4 * kVector; i += 4 * kVector) {
    const __m256i front = _mm256_min_epi8(loadFlipped<kFlipped>(in + i), loadFlipped<kFlipped>(in + i + kVector));
    const __m256i back =
        _mm256_min_epi8(loadFlipped<kFlipped>(in + i + 2 * kVector), loadFlipped<kFlipped>(in + i + 3 * kVector));
    if (!areAllInside<kFlipped>(_mm256_min_epi8(front, back))) return false;
  }
  for (; size - i >= kVector; i += kVector) {
    if (!areAllInside<kFlipped>(loadFlipped<kFlipped>(in + i))) return false;
  }
  return areAllInside<kFlipped>(loadFlipped<kFlipped>(in + size - kVector));  // some of it once more
}

AVX2_FUNCTION inline void replace(const std::uint8_t* in, __m256i replacement, std::uint8_t* out) noexcept {
  const __m256i bytes = load(in);
  wide::store(out, _mm256_blendv_epi8(replacement, bytes, areInside<0>(bytes)));
}

}  // namespace

AVX2_FUNCTION bool character_classes::avx2::arePrintable(ByteView bytes) noexcept { return areAllInside<0>(bytes); }

AVX2_FUNCTION bool character_classes::avx2::areFromSpaceOn(ByteView bytes) noexcept {
  return areAllInside<0x80>(bytes);
}

AVX2_FUNCTION void character_classes::avx2::replaceNonPrintable(ByteView bytes, std::uint8_t replacement,
                                                                ByteSpan out) noexcept {
  const __m256i replacements = all(replacement);
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 2 * kVector; i += 2 * kVector) {
    replace(bytes.data() + i, replacements, out.data() + i);
    replace(bytes.data() + i + kVector, replacements, out.data() + i + kVector);
  }
  if (size - i >= kVector) replace(bytes.data() + i, replacements, out.data() + i);
  replace(bytes.data() + size - kVector, replacements, out.data() + size - kVector);  // some of it once more
}

#endif  // WIDE_AVX2

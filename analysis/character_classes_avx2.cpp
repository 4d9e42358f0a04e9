/// Byte classes, 32 bytes at a time.
#include "analysis/character_classes.h"

#ifdef WIDE_AVX2

#include <immintrin.h>

namespace {

using character_classes::ByteClass;

constexpr std::size_t kVector = 32;

/// A class as a lower bound for signed bytes, some of their bits flipped before.
struct Bound {
  __m256i flipped;
  __m256i below;
};

AVX2_FUNCTION inline __m256i everyByte(int byte) noexcept { return _mm256_set1_epi8(static_cast<char>(byte)); }

AVX2_FUNCTION inline Bound boundOf(ByteClass byteClass) noexcept {
  if (byteClass == ByteClass::kSevenBit) return {everyByte(0), everyByte(-1)};
  if (byteClass == ByteClass::kPrintable) return {everyByte(0), everyByte(' ' - 1)};
  return {everyByte(0x80), everyByte(' ' - 1 - 0x80)};
}

AVX2_FUNCTION inline __m256i load(const std::uint8_t* bytes) noexcept {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
}

AVX2_FUNCTION inline __m256i loadFlipped(const std::uint8_t* bytes, const Bound& bound) noexcept {
  return _mm256_xor_si256(load(bytes), bound.flipped);
}

AVX2_FUNCTION inline bool allAbove(__m256i bytes, const Bound& bound) noexcept {
  return _mm256_movemask_epi8(_mm256_cmpgt_epi8(bytes, bound.below)) == -1;
}

AVX2_FUNCTION inline void replace(const std::uint8_t* in, __m256i replacement, std::uint8_t* out) noexcept {
  const __m256i bytes = load(in);
  const __m256i printable = _mm256_cmpgt_epi8(bytes, everyByte(' ' - 1));  // signed: 0x80 and above are below
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_blendv_epi8(replacement, bytes, printable));
}

}  // namespace

AVX2_FUNCTION bool character_classes::avx2::consistsOf(ByteClass byteClass, ByteView bytes) noexcept {
  const Bound bound = boundOf(byteClass);
  const std::uint8_t* const in = bytes.data();
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 4 * kVector; i += 4 * kVector) {
    const __m256i front = _mm256_min_epi8(loadFlipped(in + i, bound), loadFlipped(in + i + kVector, bound));
    const __m256i back =
        _mm256_min_epi8(loadFlipped(in + i + 2 * kVector, bound), loadFlipped(in + i + 3 * kVector, bound));
    if (!allAbove(_mm256_min_epi8(front, back), bound)) return false;
  }
  for (; size - i >= kVector; i += kVector) {
    if (!allAbove(loadFlipped(in + i, bound), bound)) return false;
  }
  return allAbove(loadFlipped(in + size - kVector, bound), bound);  // some of it once more
}

AVX2_FUNCTION void character_classes::avx2::replaceNonPrintable(ByteView bytes, std::uint8_t replacement,
                                                                ByteSpan out) noexcept {
  const __m256i replacements = everyByte(replacement);
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

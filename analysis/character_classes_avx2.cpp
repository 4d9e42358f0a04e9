/// Byte ranges, 32 bytes at a time.
#include "analysis/character_classes.h"

#ifdef WIDE_AVX2

#include "wide/vectors.h"

namespace {

using wide::all;
using wide::load;

constexpr std::size_t kVector = wide::kVector;

/// The range that signed bytes above 0x1F are: bytes of 0x80 and above are negative.
struct Printable {
  AVX2_FUNCTION static __m256i lower(__m256i a, __m256i b) noexcept { return _mm256_min_epi8(a, b); }
  AVX2_FUNCTION static __m256i contains(__m256i bytes) noexcept { return _mm256_cmpgt_epi8(bytes, all(0x1F)); }
};

struct FromSpaceOn {
  AVX2_FUNCTION static __m256i lower(__m256i a, __m256i b) noexcept { return _mm256_min_epu8(a, b); }
  AVX2_FUNCTION static __m256i contains(__m256i bytes) noexcept {
    return _mm256_cmpeq_epi8(_mm256_max_epu8(bytes, all(0x20)), bytes);
  }
};

template <typename Range>
AVX2_FUNCTION inline bool containsAll(__m256i bytes) noexcept {
  return wide::bits(Range::contains(bytes)) == 0xFFFF'FFFF;
}

/// Looks at the lowest of four vectors at a time.
template <typename Range>
AVX2_FUNCTION bool containsAll(ByteView bytes) noexcept {
  const std::uint8_t* const in = bytes.data();
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 4 * kVector; i += 4 * kVector) {
    const __m256i front = Range::lower(load(in + i), load(in + i + kVector));
    const __m256i back = Range::lower(load(in + i + 2 * kVector), load(in + i + 3 * kVector));
    if (!containsAll<Range>(Range::lower(front, back))) return false;
  }
  for (; size - i >= kVector; i += kVector) {
    if (!containsAll<Range>(load(in + i))) return false;
  }
  return containsAll<Range>(load(in + size - kVector));  // some of it once more
}

AVX2_FUNCTION inline void replace(const std::uint8_t* in, __m256i replacement, std::uint8_t* out) noexcept {
  const __m256i bytes = load(in);
  wide::store(out, _mm256_blendv_epi8(replacement, bytes, Printable::contains(bytes)));
}

}  // namespace

AVX2_FUNCTION bool character_classes::avx2::arePrintable(ByteView bytes) noexcept {
  return containsAll<Printable>(bytes);
}

AVX2_FUNCTION bool character_classes::avx2::areFromSpaceOn(ByteView bytes) noexcept {
  return containsAll<FromSpaceOn>(bytes);
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

#include "markup/readiness.h"

#ifdef WIDE_AVX2
#include "markup/markup_characters_avx2.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

/// The high bit of each byte that isn't ready.
[[nodiscard]] AVX2_FUNCTION inline __m256i notReady(__m256i bytes, __m256i markupOrNul) noexcept {
  return _mm256_or_si256(_mm256_cmpeq_epi8(_mm256_shuffle_epi8(markupOrNul, bytes), bytes), bytes);
}

}  // namespace

AVX2_FUNCTION bool readiness::avx2::isReady(ByteView bytes) noexcept {
  const __m256i markupOrNul = _mm256_broadcastsi128_si256(markup::loaded(markup::kMarkupOrNul));
  const std::uint8_t* at = bytes.data();
  std::size_t left = bytes.size();
  constexpr std::size_t kFour = std::size_t{4} * wide::kVector;
  for (; left >= kFour; at += kFour, left -= kFour) {
    const __m256i found = _mm256_or_si256(
        _mm256_or_si256(notReady(wide::load(at), markupOrNul), notReady(wide::load(at + 32), markupOrNul)),
        _mm256_or_si256(notReady(wide::load(at + 64), markupOrNul), notReady(wide::load(at + 96), markupOrNul)));
    if (wide::bits(found) != 0) return false;
  }
  for (; left >= wide::kVector; at += wide::kVector, left -= wide::kVector) {
    if (wide::bits(notReady(wide::load(at), markupOrNul)) != 0) return false;
  }
  const std::uint32_t found = wide::bits(notReady(wide::loadUpTo32(at, left), markupOrNul));
  return wide::below(found, static_cast<unsigned>(left)) == 0;
}
#endif  // WIDE_AVX2

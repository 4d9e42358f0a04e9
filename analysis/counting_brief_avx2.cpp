/// Counting in texts that fit two vectors.
#include "analysis/counting.h"

#ifdef WIDE_AVX2

#include <algorithm>
#include <bit>

#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using wide::kVector;

/// A text of at most 64 bytes. The second vector holds its last bytes, some of them once more.
struct BriefText {
  __m256i front;
  __m256i back;
  std::size_t backStart;

  AVX2_FUNCTION explicit BriefText(ByteView text) noexcept {
    if (text.size() <= kVector) {
      front = back = wide::loadUpTo32(text.data(), text.size());
      backStart = 0;  // nothing more
    } else {
      backStart = text.size() - kVector;
      front = wide::load(text.data());
      back = wide::load(text.data() + backStart);
    }
  }

  /// Where a byte stands, a bit for each position; perhaps beyond the end, too.
  [[nodiscard]] AVX2_FUNCTION inline std::uint64_t positionsOf(std::uint8_t byte) const noexcept {
    const __m256i wanted = wide::all(byte);
    const std::uint64_t inFront = wide::bits(_mm256_cmpeq_epi8(front, wanted));
    if (backStart == 0) return inFront;
    return inFront | std::uint64_t{wide::bits(_mm256_cmpeq_epi8(back, wanted))} << backStart;
  }
};

}  // namespace

AVX2_FUNCTION std::int64_t counting::avx2::countInBrief(ByteView text, ByteView pattern) noexcept {
  if (pattern.size() > text.size()) return 0;
  const BriefText brief(text);
  std::uint64_t found = ~std::uint64_t{0} >> (kBrief - 1 - (text.size() - pattern.size()));
  for (std::size_t i = 0; i < pattern.size() && found != 0; ++i) found &= brief.positionsOf(pattern[i]) >> i;
  if (pattern.size() == 1) return std::popcount(found);
  std::int64_t count = 0;
  for (; found != 0; ++count) {
    const std::size_t behind = static_cast<std::size_t>(std::countr_zero(found)) + pattern.size();
    found = behind < kBrief ? found & ~std::uint64_t{0} << behind : 0;
  }
  return count;
}

#endif  // WIDE_AVX2

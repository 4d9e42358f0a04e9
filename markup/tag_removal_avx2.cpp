#include "markup/tag_removal.h"

#ifdef WIDE_AVX2
#include <algorithm>
#include <bit>

#include "markup/markup_characters_avx2.h"
#include "markup/tag_depths.h"
#include "wide/compaction.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using tags::Brackets;

[[nodiscard]] AVX2_FUNCTION inline Brackets bracketsOf(__m256i low, __m256i high) noexcept {
  return {wide::placesOf('<', low, high), wide::placesOf('>', low, high), wide::placesOf(0, low, high)};
}

/// True when there is neither a bracket nor a zero byte.
[[nodiscard]] AVX2_FUNCTION inline bool isPlain(__m256i low, __m256i high) noexcept {
  const __m256i table = _mm256_broadcastsi128_si256(markup::loaded(markup::kBracketOrZero));
  const __m256i found = _mm256_or_si256(_mm256_cmpeq_epi8(_mm256_shuffle_epi8(table, low), low),
                                        _mm256_cmpeq_epi8(_mm256_shuffle_epi8(table, high), high));
  return _mm256_testz_si256(found, found) != 0;
}

}  // namespace

AVX2_FUNCTION std::size_t tags::avx2::remove(ByteView text, ByteSpan kept) noexcept {
  constexpr std::size_t kWindow = std::size_t{2} * wide::kVector;
  const std::uint8_t* at = text.data();
  std::size_t left = text.size();
  std::uint8_t* out = kept.data();
  std::int64_t depth = 0;
  // Never more is written than was read, so that storing whole vectors stays inside.
  for (; left >= kWindow; at += kWindow, left -= kWindow) {
    const __m256i low = wide::load(at);
    const __m256i high = wide::load(at + wide::kVector);
    if (isPlain(low, high)) {
      wide::store(out, low);
      wide::store(out + wide::kVector, high);
      out += depth == 0 ? kWindow : 0;
      continue;
    }
    const std::uint64_t outside = sorted(bracketsOf(low, high), depth).outside;
    out = wide::storeKept(out, low, static_cast<std::uint32_t>(outside));
    out = wide::storeKept(out, high, static_cast<std::uint32_t>(outside >> wide::kVector));
  }
  while (left != 0) {
    const std::size_t count = std::min<std::size_t>(left, wide::kVector);
    const __m256i bytes = wide::loadUpTo32(at, count);  // zeros behind them: not kept
    const std::uint64_t outside = sorted(bracketsOf(bytes, _mm256_setzero_si256()), depth).outside;
    out = wide::storeKeptOnly(out, bytes, static_cast<std::uint32_t>(outside));
    at += count;
    left -= count;
  }
  return static_cast<std::size_t>(out - kept.data());
}

AVX2_FUNCTION std::int64_t tags::avx2::replacedSize(ByteView text, ByteView replacement) noexcept {
  std::int64_t depth = 0;
  std::int64_t outside = 0;
  std::int64_t inside = 0;
  while (!text.empty()) {
    const std::size_t inLow = std::min<std::size_t>(text.size(), wide::kVector);
    const std::size_t inHigh = std::min<std::size_t>(text.size() - inLow, wide::kVector);
    const __m256i low = wide::loadUpTo32(text.data(), inLow);
    const __m256i high = wide::loadUpTo32(text.data() + inLow, inHigh);
    const Sorted bytes = sorted(bracketsOf(low, high), depth);
    outside += std::popcount(bytes.outside);
    inside += std::popcount(bytes.inside);
    text = text.subspan(inLow + inHigh);
  }
  return outside + inside * static_cast<std::int64_t>(replacement.size());
}
#endif  // WIDE_AVX2

/// Counting at 64 places of the text at once.
#include "analysis/counting.h"

#ifdef WIDE_AVX2

#include <bit>

#include "analysis/counting_anchors.h"
#include "analysis/counting_two_way.h"
#include "wide/vectors.h"

namespace counting {
namespace {

/// Places of the text that are looked at together, one bit each.
constexpr std::size_t kBlock = 64;

/// The places of a block where one byte of the pattern is.
struct Equal {
  __m256i low;
  __m256i high;
};

AVX2_FUNCTION inline Equal equal(const std::uint8_t* places, __m256i byte) noexcept {
  return {_mm256_cmpeq_epi8(wide::load(places), byte), _mm256_cmpeq_epi8(wide::load(places + 32), byte)};
}

AVX2_FUNCTION inline std::uint64_t bits(Equal equal) noexcept {
  return wide::bits(equal.low) | std::uint64_t{wide::bits(equal.high)} << 32;
}

AVX2_FUNCTION inline Equal both(Equal a, Equal b) noexcept {
  return {_mm256_and_si256(a.low, b.low), _mm256_and_si256(a.high, b.high)};
}

/// The bits from `begin` on.
constexpr std::uint64_t from(std::size_t begin) noexcept { return begin < kBlock ? ~std::uint64_t{0} << begin : 0; }

AVX2_FUNCTION inline std::int64_t sumOfBytes(__m256i sums) noexcept {
  const __m256i quarters = _mm256_sad_epu8(sums, _mm256_setzero_si256());
  const __m128i halves = _mm_add_epi64(_mm256_castsi256_si128(quarters), _mm256_extracti128_si256(quarters, 1));
  return _mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4);
}

/// Blocks whose finds a byte of a sum can hold, two vectors a block.
constexpr std::size_t kMostBlocks = 127;

AVX2_FUNCTION std::int64_t countByte(ByteView text, std::uint8_t byte) noexcept {
  const __m256i wanted = wide::all(byte);
  std::int64_t count = 0;
  std::size_t i = 0;
  while (text.size() - i >= kBlock) {
    const std::size_t end = i + kBlock * std::min(kMostBlocks, (text.size() - i) / kBlock);
    __m256i sums = _mm256_setzero_si256();
    for (; i < end; i += kBlock) {
      const Equal found = equal(text.data() + i, wanted);
      sums = _mm256_sub_epi8(sums, _mm256_add_epi8(found.low, found.high));
    }
    count += sumOfBytes(sums);
  }
  if (i == text.size()) return count;
  const std::size_t last = text.size() - kBlock;  // overlaps what is counted
  return count + std::popcount(bits(equal(text.data() + last, wanted)) & from(i - last));
}

/// True when an occurrence can overlap the next one.
bool overlapsItself(ByteView pattern) noexcept {
  for (std::size_t i = 1; i < pattern.size(); ++i) {
    if (pattern[i] == pattern[0] && std::memcmp(pattern.data(), pattern.data() + i, pattern.size() - i) == 0)
      return true;
  }
  return false;
}

/// Passes over places where the rarest byte of the pattern isn't, while that is faster than looking closely.
class RareByte {
 public:
  /// @param bytes   where the byte stands if the pattern is at the first place
  /// @param places  at least a block
  AVX2_FUNCTION RareByte(const std::uint8_t* bytes, std::size_t places, std::uint8_t byte) noexcept
      : bytes_(bytes), places_(places), byte_(wide::all(byte)) {}

  /// A place from `i` on with none before it where the pattern could be; the number of places when there is none.
  AVX2_FUNCTION inline std::size_t next(std::size_t i) noexcept {
    if (i < resume_) return i;
    const std::size_t found = find(i);
    pause_ = found - i >= kWorthwhile ? kFirstPause : pause_ * 2;
    if (found - i < kWorthwhile) resume_ = found + pause_;
    return found;
  }

  /// The place up to which looking closely is faster.
  [[nodiscard]] std::size_t resume() const noexcept { return resume_; }

 private:
  static constexpr std::size_t kGroup = 4 * wide::kVector;
  static constexpr std::size_t kWorthwhile = 4 * kGroup;
  static constexpr std::size_t kFirstPause = 4 * kGroup;

  /// Where in a group the byte stands first; the length of the group when it doesn't.
  [[nodiscard]] AVX2_FUNCTION inline std::size_t findIn(const std::uint8_t* group) const noexcept {
    const Equal front = equal(group, byte_);
    const Equal back = equal(group + kBlock, byte_);
    const __m256i any = _mm256_or_si256(_mm256_or_si256(front.low, front.high), _mm256_or_si256(back.low, back.high));
    if (wide::bits(any) == 0) return kGroup;
    const std::uint64_t inFront = bits(front);
    return static_cast<std::size_t>(inFront != 0 ? std::countr_zero(inFront)
                                                 : static_cast<int>(kBlock) + std::countr_zero(bits(back)));
  }

  [[nodiscard]] AVX2_FUNCTION std::size_t find(std::size_t i) const noexcept {
    if (i + kGroup > places_) return i;
    std::size_t position = findIn(bytes_ + i);
    if (position != kGroup) return i + position;
    i += kGroup - reinterpret_cast<std::uintptr_t>(bytes_ + i) % wide::kVector;  // aligned from here on
    for (; i + kGroup <= places_; i += kGroup) {
      position = findIn(bytes_ + i);
      if (position != kGroup) return i + position;
    }
    const std::size_t last = places_ - kGroup;  // overlaps what is passed
    return last + findIn(bytes_ + last);
  }

  const std::uint8_t* bytes_;
  std::size_t places_;
  __m256i byte_;
  std::size_t pause_ = kFirstPause;
  std::size_t resume_ = 0;
};

/// Patterns that are short enough to be compared at all places of a block at once.
constexpr std::size_t kShortPattern = 16;

/// Patterns that are compared as quickly as their anchors are looked for.
constexpr std::size_t kTinyPattern = 4;

/// The places of a block where a tiny pattern occurs.
AVX2_FUNCTION inline std::uint64_t occurrencesOfTiny(const std::uint8_t* places, ByteView pattern) noexcept {
  Equal found = equal(places, wide::all(pattern[0]));
  for (std::size_t i = 1; i < pattern.size(); ++i) found = both(found, equal(places + i, wide::all(pattern[i])));
  return bits(found);
}

/// The places of a block where a short pattern occurs.
AVX2_FUNCTION inline std::uint64_t occurrences(const std::uint8_t* places, ByteView pattern, Anchors anchors) noexcept {
  if (pattern.size() <= kTinyPattern) return occurrencesOfTiny(places, pattern);
  Equal found = both(equal(places + anchors.first, wide::all(pattern[anchors.first])),
                     equal(places + anchors.second, wide::all(pattern[anchors.second])));
  if (bits(found) == 0) return 0;
  for (std::size_t i = 0; i < pattern.size(); ++i) found = both(found, equal(places + i, wide::all(pattern[i])));
  return bits(found);
}

/// Counts two different bytes in a row.
/// @param places  all of which have a byte behind them; whole blocks of them
AVX2_FUNCTION std::int64_t countPair(const std::uint8_t* places, std::size_t blocks, ByteView pair) noexcept {
  const __m256i first = wide::all(pair[0]);
  const __m256i second = wide::all(pair[1]);
  std::int64_t count = 0;
  while (blocks != 0) {
    const std::size_t group = std::min(kMostBlocks, blocks);
    blocks -= group;
    __m256i sums = _mm256_setzero_si256();
    for (const std::uint8_t* const end = places + group * kBlock; places != end; places += kBlock) {
      const Equal found = both(equal(places, first), equal(places + 1, second));
      sums = _mm256_sub_epi8(sums, _mm256_add_epi8(found.low, found.high));
    }
    count += sumOfBytes(sums);
  }
  return count;
}

/// @param i  the first place that matters
AVX2_FUNCTION std::int64_t countShort(ByteView text, ByteView pattern, RareByte& rare, std::size_t i) noexcept {
  const Anchors anchors = chooseAnchors(pattern);
  const bool overlaps = overlapsItself(pattern);
  const std::size_t places = text.size() - pattern.size() + 1;
  const bool isPair = pattern.size() == 2 && !overlaps;
  std::int64_t count = 0;
  for (; i < places; i = rare.next(i)) {
    if (const std::size_t close = std::min(rare.resume(), places); isPair && i + kBlock <= close) {
      const std::size_t blocks = (close - i) / kBlock;
      count += countPair(text.data() + i, blocks, pattern);
      i += blocks * kBlock;
      continue;
    }
    const std::size_t block = std::min(i, places - kBlock);
    std::uint64_t found = occurrences(text.data() + block, pattern, anchors) & from(i - block);
    i = block + kBlock;
    if (!overlaps) {
      count += std::popcount(found);
      continue;
    }
    while (found != 0) {
      const std::size_t behind = static_cast<std::size_t>(std::countr_zero(found)) + pattern.size();
      ++count;
      found &= from(behind);
      if (behind > kBlock) i = block + behind;
    }
  }
  return count;
}

/// @param i  the first place that matters
AVX2_FUNCTION std::int64_t countLong(ByteView text, ByteView pattern, RareByte& rare, std::size_t i) noexcept {
  const Anchors anchors = chooseAnchors(pattern);
  const __m256i firstByte = wide::all(pattern[anchors.first]);
  const __m256i secondByte = wide::all(pattern[anchors.second]);
  const std::size_t places = text.size() - pattern.size() + 1;
  Verifier verifier(pattern);
  std::int64_t count = 0;
  for (; i < places; i = rare.next(i)) {
    const std::size_t block = std::min(i, places - kBlock);
    const Equal found = both(equal(text.data() + block + anchors.first, firstByte),
                             equal(text.data() + block + anchors.second, secondByte));
    std::uint64_t candidates = bits(found) & from(i - block);
    i = block + kBlock;
    while (candidates != 0) {
      const std::size_t place = static_cast<std::size_t>(std::countr_zero(candidates));
      candidates &= candidates - 1;
      if (!verifier.occursAt(text.data() + block + place)) continue;
      ++count;
      candidates &= from(place + pattern.size());
      i = std::max(i, block + place + pattern.size());
    }
    if (verifier.isTooDear(i)) return count + countTwoWay(text.subspan(std::min(i, text.size())), pattern);
  }
  return count;
}

}  // namespace

AVX2_FUNCTION std::int64_t avx2::count(ByteView text, ByteView pattern) noexcept {
  if (text.size() <= kBrief) return countInBrief(text, pattern);
  if (pattern.size() == 1) return countByte(text, pattern[0]);
  if (text.size() < pattern.size() + kBlock - 1) return scalar::count(text, pattern);
  const std::size_t rarest = rarestByte(pattern);
  const std::size_t places = text.size() - pattern.size() + 1;
  RareByte rare(text.data() + rarest, places, pattern[rarest]);
  const std::size_t first = rare.next(0);
  if (first == places) return 0;
  return pattern.size() <= kShortPattern ? countShort(text, pattern, rare, first)
                                         : countLong(text, pattern, rare, first);
}

}  // namespace counting

#endif  // WIDE_AVX2

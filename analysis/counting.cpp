/// The plain form of counting, and the choice between the forms.
#include "analysis/counting.h"

#include <bit>

#include "analysis/counting_anchors.h"
#include "analysis/counting_two_way.h"
#include "memory/wrapping.h"
#include "wide/byte_word.h"

namespace counting {
namespace {

/// The high bit of each byte that is zero.
std::uint64_t zeroBytes(std::uint64_t word) noexcept {
  constexpr std::uint64_t kLowBits = ~byte_word::kHighBits;
  return ~(((word & kLowBits) + kLowBits) | word | kLowBits);
}

/// The sum of the eight bytes.
WRAPPING_FUNCTION std::uint64_t sumOfBytes(std::uint64_t word) noexcept {
  constexpr std::uint64_t kEvenBytes = 0x00FF'00FF'00FF'00FF;
  return ((word & kEvenBytes) + ((word >> 8) & kEvenBytes)) * 0x0001'0001'0001'0001 >> 48;
}

std::int64_t countByte(ByteView text, std::uint8_t byte) noexcept {
  constexpr std::size_t kMostWords = 255;  // what a byte of a sum can hold
  std::int64_t count = 0;
  std::size_t i = 0;
  while (text.size() - i >= 8) {
    const std::size_t end = i + 8 * std::min(kMostWords, (text.size() - i) / 8);
    std::uint64_t sums = 0;
    for (; i < end; i += 8) sums += zeroBytes(byte_word::load(text.data() + i) ^ (byte_word::kOnes * byte)) >> 7;
    count += static_cast<std::int64_t>(sumOfBytes(sums));
  }
  for (; i < text.size(); ++i) count += text[i] == byte ? 1 : 0;
  return count;
}

}  // namespace

std::int64_t scalar::count(ByteView text, ByteView pattern) noexcept {
  if (pattern.size() == 1) return countByte(text, pattern[0]);
  if (pattern.size() > text.size()) return 0;
  const std::size_t length = pattern.size();
  const std::size_t places = text.size() - length + 1;
  const auto [first, second] = chooseAnchors(pattern);
  const std::uint64_t firstBytes = byte_word::kOnes * pattern[first];
  const std::uint64_t secondBytes = byte_word::kOnes * pattern[second];
  Verifier verifier(pattern);

  std::int64_t count = 0;
  std::size_t i = 0;
  while (i + 8 <= places) {
    std::uint64_t candidates = zeroBytes((byte_word::load(text.data() + i + first) ^ firstBytes) |
                                         (byte_word::load(text.data() + i + second) ^ secondBytes));
    std::size_t next = i + 8;
    while (candidates != 0) {
      const std::size_t place = i + static_cast<std::size_t>(std::countr_zero(candidates)) / 8;
      candidates &= candidates - 1;
      if (!verifier.occursAt(text.data() + place)) continue;
      ++count;
      const std::size_t behind = place + length;
      candidates = behind < i + 8 ? candidates & (~std::uint64_t{0} << 8 * (behind - i)) : 0;
      next = std::max(next, behind);
    }
    i = next;
    if (verifier.isTooDear(i)) return count + countTwoWay(text.subspan(std::min(i, text.size())), pattern);
  }
  while (i < places) {
    const bool occurs = text[i + first] == pattern[first] && verifier.occursAt(text.data() + i);
    count += occurs ? 1 : 0;
    i += occurs ? length : 1;
  }
  return count;
}

std::int64_t count(ByteView text, ByteView pattern) noexcept {
  if (pattern.empty() || pattern.size() > text.size()) return 0;
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::count(text, pattern);
#endif
#ifdef WIDE_NEON
  constexpr std::size_t kPlacesAtATime = 64;
  if (text.size() - pattern.size() >= kPlacesAtATime && cpu::hasNeon()) return neon::count(text, pattern);
#endif
  return scalar::count(text, pattern);
}

}  // namespace counting

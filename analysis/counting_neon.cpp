/// Counting at 32 places of the text at once.
#include "analysis/counting.h"

#ifdef WIDE_NEON

#include <bit>

#include "analysis/counting_anchors.h"
#include "analysis/counting_two_way.h"
#include "wide/neon.h"

namespace counting {
namespace {

using wide::Block;
using wide::kBlock;
using wide::kVector;

NEON_FUNCTION inline uint8x16_t equal(const std::uint8_t* places, uint8x16_t byte) noexcept {
  return vceqq_u8(wide::load(places), byte);
}

NEON_FUNCTION std::int64_t countByte(ByteView text, std::uint8_t byte) noexcept {
  constexpr std::size_t kMostVectors = 255;  // what a byte of a sum can hold
  const uint8x16_t wanted = wide::all(byte);
  std::int64_t count = 0;
  std::size_t i = 0;
  while (text.size() - i >= kVector) {
    const std::size_t end = i + kVector * std::min(kMostVectors, (text.size() - i) / kVector);
    uint8x16_t sums = wide::all(0);
    for (; i < end; i += kVector) sums = vsubq_u8(sums, equal(text.data() + i, wanted));
    count += wide::sumOf(sums);
  }
  return count + (i < text.size() ? scalar::count(text.subspan(i), {&byte, 1}) : 0);
}

/// The bits from `begin` on.
constexpr std::uint32_t from(std::size_t begin) noexcept { return begin < kBlock ? ~std::uint32_t{0} << begin : 0; }

}  // namespace

NEON_FUNCTION std::int64_t neon::count(ByteView text, ByteView pattern) noexcept {
  if (pattern.size() == 1) return countByte(text, pattern[0]);
  if (text.size() < pattern.size() + kBlock - 1) return scalar::count(text, pattern);
  const auto [first, second] = chooseAnchors(pattern);
  const uint8x16_t firstByte = wide::all(pattern[first]);
  const uint8x16_t secondByte = wide::all(pattern[second]);
  const std::size_t places = text.size() - pattern.size() + 1;
  Verifier verifier(pattern);
  std::int64_t count = 0;
  for (std::size_t i = 0; i < places;) {
    const std::size_t block = std::min(i, places - kBlock);
    const std::uint8_t* const at = text.data() + block;
    const Block found{vandq_u8(equal(at + first, firstByte), equal(at + second, secondByte)),
                      vandq_u8(equal(at + first + kVector, firstByte), equal(at + second + kVector, secondByte))};
    std::size_t next = block + kBlock;
    if (wide::any(vorrq_u8(found.low, found.high))) {
      for (std::uint32_t candidates = wide::bits(found) & from(i - block); candidates != 0;) {
        const auto place = static_cast<std::size_t>(std::countr_zero(candidates));
        candidates &= candidates - 1;
        if (!verifier.occursAt(at + place)) continue;
        ++count;
        candidates &= from(place + pattern.size());
        next = std::max(next, block + place + pattern.size());
      }
    }
    i = next;
    if (verifier.isTooDear(i)) return count + countTwoWay(text.subspan(std::min(i, text.size())), pattern);
  }
  return count;
}

}  // namespace counting

#endif  // WIDE_NEON

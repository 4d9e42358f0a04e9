/// The plain form of the bitwise operations, how masks are laid out, and the choice between the forms.
#include "bytes/bitwise.h"

#include <algorithm>
#include <cstring>

#include "wide/byte_word.h"

namespace bitwise {
namespace {

/// Masks below this length are spread over a period of at least this length.
constexpr std::size_t kSpreadLength = 1024;

void combineRun(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
                std::uint8_t* result) noexcept {
#ifdef WIDE_AVX2
  if (data.size() >= 32 && cpu::hasAvx2()) return avx2::combine(operation, data, mask, position, result);
#endif
#ifdef WIDE_NEON
  if (data.size() >= 32 && cpu::hasNeon()) return neon::combine(operation, data, mask, position, result);
#endif
  scalar::combine(operation, data, mask, position, result);
}

/// Repeats a short mask, beginning at `start`, over whole periods, so that the kernel meets its end seldom.
void combineShortMask(Operation operation, ByteView data, ByteView mask, std::size_t start, ByteSpan result) noexcept {
  std::uint8_t spread[2 * kSpreadLength + RepeatingMask::kSlack];
  const std::size_t length = mask.size();
  const std::size_t period = (kSpreadLength + length - 1) / length * length;
  const std::size_t needed = std::min(data.size(), period + RepeatingMask::kSlack);
  if (length == 1) {
    std::memset(spread, mask[0], needed);
  } else {
    std::memcpy(spread, mask.data() + start, length - start);
    std::memcpy(spread + length - start, mask.data(), start);
    for (std::size_t filled = length; filled < needed; filled *= 2) {
      std::memcpy(spread + filled, spread, std::min(filled, needed - filled));
    }
  }
  combineRun(operation, data, {spread, period}, 0, result.data());
}

void combineLongMask(Operation operation, ByteView data, ByteView mask, std::size_t start, ByteSpan result) noexcept {
  std::size_t position = 0;
  while (position < data.size()) {
    const std::size_t run = std::min(mask.size() - start, data.size() - position);
    combineRun(operation, data.subspan(position, run), {mask.data() + start, run}, position, result.data() + position);
    position += run;
    start = 0;
  }
}

/// Where in the mask an offset points.
std::size_t startInMask(std::int32_t offset, std::size_t maskLength) noexcept {
  const std::int64_t length = static_cast<std::int64_t>(maskLength);
  const std::int64_t remainder = offset % length;
  return static_cast<std::size_t>(remainder < 0 ? remainder + length : remainder);
}

template <Operation kOperation, typename Word>
Word combined(Word data, Word mask, Word position) noexcept {
  if constexpr (kOperation == Operation::kAnd) return data & mask;
  if constexpr (kOperation == Operation::kOr) return data | mask;
  if constexpr (kOperation == Operation::kXor) return data ^ mask;
  return data ^ mask ^ position;
}

/// Adds the bytes of two words pairwise, each modulo 256.
std::uint64_t sumOfBytes(std::uint64_t a, std::uint64_t b) noexcept {
  using byte_word::kHighBits;
  return ((a & ~kHighBits) + (b & ~kHighBits)) ^ ((a ^ b) & kHighBits);
}

template <Operation kOperation>
void combineAs(ByteView data, RepeatingMask mask, std::size_t position, std::uint8_t* result) noexcept {
  using byte_word::kOnes;
  std::uint64_t positions = sumOfBytes(kOnes * (position & 0xFF), 0x0706'0504'0302'0100);
  std::size_t i = 0;
  std::size_t k = 0;
  for (; i + 8 <= data.size(); i += 8) {
    const std::uint64_t word =
        combined<kOperation>(byte_word::load(data.data() + i), byte_word::load(mask.bytes + k), positions);
    byte_word::store(result + i, word);
    positions = sumOfBytes(positions, 8 * kOnes);
    k += 8;
    if (k >= mask.period) k -= mask.period;
  }
  for (; i < data.size(); ++i, ++k) {
    result[i] = combined<kOperation>(data[i], mask.bytes[k], static_cast<std::uint8_t>(position + i));
  }
}

}  // namespace

void combine(Operation operation, ByteView data, ByteView mask, std::int32_t offset, ByteSpan result) noexcept {
  const std::size_t start = startInMask(offset, mask.size());
  if (mask.size() - start >= data.size() || mask.size() >= kSpreadLength) {
    combineLongMask(operation, data, mask, start, result);
  } else {
    combineShortMask(operation, data, mask, start, result);
  }
}

void scalar::combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
                     std::uint8_t* result) noexcept {
  switch (operation) {
    case Operation::kAnd:
      return combineAs<Operation::kAnd>(data, mask, position, result);
    case Operation::kOr:
      return combineAs<Operation::kOr>(data, mask, position, result);
    case Operation::kXor:
      return combineAs<Operation::kXor>(data, mask, position, result);
    case Operation::kXorPosition:
      return combineAs<Operation::kXorPosition>(data, mask, position, result);
  }
}

}  // namespace bitwise

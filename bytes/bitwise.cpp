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
  if (cpu::hasAvx2()) return avx2::combine(operation, data, mask, position, result);
#endif
#ifdef WIDE_NEON
  if (data.size() >= 32 && cpu::hasNeon()) return neon::combine(operation, data, mask, position, result);
#endif
  scalar::combine(operation, data, mask, position, result);
}

/// Repeats a mask, beginning at `start`, in all of `spread`, which is at least as long.
void repeat(ByteView mask, std::size_t start, ByteSpan spread) noexcept {
  if (mask.size() == 1) {
    std::memset(spread.data(), mask[0], spread.size());
    return;
  }
  std::memcpy(spread.data(), mask.data() + start, mask.size() - start);
  std::memcpy(spread.data() + mask.size() - start, mask.data(), start);
  for (std::size_t filled = mask.size(); filled < spread.size(); filled *= 2) {
    std::memcpy(spread.data() + filled, spread.data(), std::min(filled, spread.size() - filled));
  }
}

/// Repeats a short mask over whole periods, so that the kernel meets its end seldom.
void combineShortMask(Operation operation, ByteView data, ByteView mask, std::size_t start, ByteSpan result) noexcept {
  std::uint8_t spread[2 * kSpreadLength + RepeatingMask::kSlack];
  const std::size_t period = (kSpreadLength + mask.size() - 1) / mask.size() * mask.size();
#ifdef WIDE_AVX2
  if (data.size() <= avx2::kBrief && mask.size() <= avx2::kBriefMask && cpu::hasAvx2()) {
    avx2::repeatBrief(mask, start, spread);
    return avx2::combine(operation, data, {spread, period}, 0, result.data());
  }
#endif
  const std::size_t needed = std::min(data.size(), period + RepeatingMask::kSlack);
  repeat(mask, start, {spread, std::max(mask.size(), needed)});
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
  if (offset >= 0 && offset < length) return static_cast<std::size_t>(offset);  // without a division
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
  if (mask.size() - start >= data.size()) {
    combineRun(operation, data, {mask.data() + start, data.size()}, 0, result.data());
  } else if (mask.size() >= kSpreadLength) {
    combineLongMask(operation, data, mask, start, result);
  } else {
    combineShortMask(operation, data, mask, start, result);
  }
}

void scalar::combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
                     std::uint8_t* result) noexcept {
  static constexpr OperationKernel* kKernels[] = {combineAs<Operation::kAnd>, combineAs<Operation::kOr>,
                                                  combineAs<Operation::kXor>, combineAs<Operation::kXorPosition>};
  kKernels[static_cast<std::size_t>(operation)](data, mask, position, result);
}

}  // namespace bitwise

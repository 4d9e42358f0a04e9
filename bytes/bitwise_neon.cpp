/// The bitwise operations in vectors of 16 bytes.
#include "bytes/bitwise.h"

#ifdef WIDE_NEON

#include "wide/neon.h"

namespace bitwise {
namespace {

using wide::kVector;

template <Operation kOperation>
NEON_FUNCTION inline uint8x16_t combined(uint8x16_t bytes, uint8x16_t partners, uint8x16_t positions) noexcept {
  if constexpr (kOperation == Operation::kAnd) return vandq_u8(bytes, partners);
  if constexpr (kOperation == Operation::kOr) return vorrq_u8(bytes, partners);
  if constexpr (kOperation == Operation::kXor) return veorq_u8(bytes, partners);
  return veorq_u8(veorq_u8(bytes, partners), positions);
}

template <Operation kOperation>
NEON_FUNCTION void combineAs(ByteView data, RepeatingMask mask, std::size_t position, std::uint8_t* result) noexcept {
  constexpr std::size_t kStep = 4 * kVector;
  static_assert(kStep <= RepeatingMask::kSlack);
  const std::uint8_t* const bytes = data.data();
  uint8x16_t positions = vaddq_u8(wide::places(), wide::all(static_cast<std::uint8_t>(position)));
  std::size_t i = 0;
  std::size_t k = 0;
  while (i + kStep <= data.size()) {
    for (const std::size_t end = i + kStep; i < end; i += kVector, k += kVector) {
      wide::store(result + i, combined<kOperation>(wide::load(bytes + i), wide::load(mask.bytes + k), positions));
      positions = vaddq_u8(positions, wide::all(kVector));
    }
    k = k >= mask.period ? k - mask.period : k;
  }
  scalar::combine(kOperation, data.subspan(i), {mask.bytes + k, mask.period}, position + i, result + i);
}

}  // namespace

void neon::combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
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

#endif  // WIDE_NEON

#include "wide/ascii_scan.h"

#ifdef WIDE_NEON

#include "wide/neon.h"

using wide::kVector;
using wide::load;

NEON_FUNCTION std::size_t ascii::neon::findNonAscii(ByteView bytes) noexcept {
  const std::uint8_t* const data = bytes.data();
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 4 * kVector; i += 4 * kVector) {
    const uint8x16_t low = vorrq_u8(load(data + i), load(data + i + kVector));
    const uint8x16_t high = vorrq_u8(load(data + i + 2 * kVector), load(data + i + 3 * kVector));
    if (wide::any(vandq_u8(vorrq_u8(low, high), wide::all(0x80)))) break;
  }
  return i + scalar::findNonAscii(bytes.subspan(i));
}

#endif  // WIDE_NEON

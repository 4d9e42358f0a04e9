/// The hex codec in vectors of 16 bytes.
#include "codecs/hex.h"

#ifdef WIDE_NEON

#include "codecs/hex_digits_neon.h"

namespace {

using wide::kVector;

NEON_FUNCTION inline void storeDigits(std::uint8_t* to, const std::uint8_t* bytes) noexcept {
  vst2q_u8(to, neon::digitsOf(wide::load(bytes)));
}

NEON_FUNCTION inline void storeBytes(std::uint8_t* to, const std::uint8_t* digits) noexcept {
  const uint8x16x2_t pairs = vld2q_u8(digits);
  wide::store(to, neon::hexBytes(pairs.val[0], pairs.val[1]));
}

}  // namespace

NEON_FUNCTION void hex::neon::encode(ByteView bytes, ByteSpan digits) noexcept {
  const std::size_t count = bytes.size();
  if (count < kVector) return scalar::encode(bytes, digits);
  const std::size_t last = count - kVector;  // some of it once more
  for (std::size_t i = 0; i < last; i += kVector) storeDigits(digits.data() + 2 * i, bytes.data() + i);
  storeDigits(digits.data() + 2 * last, bytes.data() + last);
}

NEON_FUNCTION void hex::neon::decode(ByteView digits, ByteSpan bytes) noexcept {
  const std::size_t count = bytes.size();
  if (count < kVector) return scalar::decode(digits, bytes);
  const std::size_t last = count - kVector;  // some of it once more
  for (std::size_t i = 0; i < last; i += kVector) storeBytes(bytes.data() + i, digits.data() + 2 * i);
  storeBytes(bytes.data() + last, digits.data() + 2 * last);
}

#endif  // WIDE_NEON

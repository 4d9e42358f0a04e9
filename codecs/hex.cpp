/// The plain form of the hex codec, and the choice between the forms.
#include "codecs/hex.h"

#include "codecs/hex_digits.h"

namespace {

/// From this many bytes on the widest registers win.
constexpr std::size_t kAvx512From = 128;

}  // namespace

void hex::scalar::encode(ByteView bytes, ByteSpan digits) noexcept {
  std::uint8_t* out = digits.data();
  for (const std::uint8_t byte : bytes) {
    out[0] = kHexDigits[byte >> 4];
    out[1] = kHexDigits[byte & 0x0F];
    out += 2;
  }
}

void hex::scalar::decode(ByteView digits, ByteSpan bytes) noexcept {
  const std::uint8_t* pair = digits.data();
  for (std::uint8_t& byte : bytes) {
    byte = hexByte(pair[0], pair[1]);
    pair += 2;
  }
}

void hex::encode(ByteView bytes, ByteSpan digits) noexcept {
#ifdef WIDE_AVX512
  if (bytes.size() >= kAvx512From && cpu::hasAvx512()) return avx512::encode(bytes, digits);
#endif
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::encode(bytes, digits);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::encode(bytes, digits);
#endif
  scalar::encode(bytes, digits);
}

void hex::decode(ByteView digits, ByteSpan bytes) noexcept {
#ifdef WIDE_AVX512
  if (bytes.size() >= kAvx512From && cpu::hasAvx512()) return avx512::decode(digits, bytes);
#endif
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::decode(digits, bytes);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::decode(digits, bytes);
#endif
  scalar::decode(digits, bytes);
}

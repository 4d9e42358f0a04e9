/// The subject encoder in vectors of 16 bytes.
#include "codecs/email_subject.h"

#ifdef WIDE_NEON

#include "codecs/hex_escapes_neon.h"

namespace {

using wide::all;
using wide::kVector;
using wide::load;

/// The bytes that are not plain: below 0x20, and from 0x80 on, which is below it as a signed number.
NEON_FUNCTION inline uint8x16_t notPlain(uint8x16_t bytes) noexcept {
  return vcltq_s8(vreinterpretq_s8_u8(bytes), vdupq_n_s8(0x20));
}

/// The bytes that are escaped in an encoded word.
NEON_FUNCTION inline uint8x16_t escapes(uint8x16_t bytes) noexcept {
  const uint8x16_t marks = vorrq_u8(vceqq_u8(bytes, all('=')), vceqq_u8(bytes, all('_')));
  return vorrq_u8(vcgeq_u8(bytes, all(0x80)), marks);
}

}  // namespace

NEON_FUNCTION std::size_t email_subject::neon::findNotPlain(ByteView text) noexcept {
  std::size_t i = 0;
  while (text.size() - i >= kVector && !wide::any(notPlain(load(text.data() + i)))) i += kVector;
  return i + scalar::findNotPlain(text.subspan(i));
}

NEON_FUNCTION std::size_t email_subject::neon::countEscapes(ByteView text) noexcept {
  std::size_t count = 0;
  std::size_t i = 0;
  for (; text.size() - i >= kVector; i += kVector) {
    count += wide::sumOf(vandq_u8(escapes(load(text.data() + i)), all(1)));
  }
  return count + scalar::countEscapes(text.subspan(i));
}

NEON_FUNCTION std::uint8_t* email_subject::neon::encode(ByteView text, std::uint8_t* out) noexcept {
  std::size_t i = 0;
  for (; text.size() - i >= kVector; i += kVector) {
    const uint8x16_t bytes = load(text.data() + i);
    const uint8x16_t characters = vbslq_u8(vceqq_u8(bytes, all(' ')), all('_'), bytes);
    const uint8x16_t escaped = escapes(bytes);
    if (wide::any(escaped)) {
      out = ::neon::storeEscaped(out, bytes, characters, wide::bits(escaped));
    } else {
      wide::store(out, characters);
      out += kVector;
    }
  }
  return scalar::encode(text.subspan(i), out);
}

#endif  // WIDE_NEON

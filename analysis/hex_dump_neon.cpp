/// Hex dumps 16 bytes of text at a time.
#include "analysis/hex_dump.h"

#ifdef WIDE_NEON

#include "analysis/hex_dump_steps.h"
#include "codecs/hex_digits_neon.h"

namespace {

using hex_dump::Step;
using hex_dump::Steps;

/// The 16 digits of 8 bytes.
NEON_FUNCTION inline uint8x16_t digitsOf8(const std::uint8_t* in) noexcept {
  const uint8x8_t bytes = vld1_u8(in);
  const uint8x8x2_t nibbles = vzip_u8(vshr_n_u8(bytes, 4), vand_u8(bytes, vdup_n_u8(0x0F)));
  return neon::hexDigits(vcombine_u8(nibbles.val[0], nibbles.val[1]));
}

NEON_FUNCTION void repeat(const Steps& steps, std::int64_t times, const std::uint8_t* in, std::uint8_t* out) noexcept {
  const Step* const end = steps.end();
  for (; times > 0; --times) {
    for (const Step* step = steps.begin(); step != end; ++step) {
      const uint8x16_t digits = wide::lookedUp(digitsOf8(in + step->in), wide::load(step->digitIndex.data()));
      wide::store(out + step->out, vorrq_u8(digits, wide::load(step->fixed.data())));
    }
    in += steps.digitCount() / 2;
    out += steps.size();
  }
}

}  // namespace

void hex_dump::neon::write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  writeRepeated(bytes, layout, text, repeat);
}

#endif  // WIDE_NEON

/// yEnc in blocks of 32 bytes.
#include "codecs/yenc.h"

#ifdef WIDE_NEON

#include "codecs/escape_pairs.h"
#include "wide/neon.h"

namespace {

using wide::all;
using wide::Block;
using wide::kBlock;

/// Takes the shift off, and the other one where the bits tell.
NEON_FUNCTION inline uint8x16_t unshifted(uint8x16_t bytes, std::uint32_t escaped) noexcept {
  const uint8x16_t further = vandq_u8(wide::maskOf(escaped), all(yenc::kEscapedShift));
  return vsubq_u8(bytes, vaddq_u8(further, all(yenc::kShift)));
}

}  // namespace

NEON_FUNCTION std::size_t yenc::neon::decode(ByteView data, ByteSpan bytes) noexcept {
  const std::uint8_t* in = data.data();
  const std::uint8_t* const end = in + data.size();
  std::uint8_t* out = bytes.data();
  std::uint32_t carried = 0;
  for (; static_cast<std::size_t>(end - in) >= kBlock; in += kBlock) {
    const Block block = wide::loadBlock(in);
    const std::uint32_t marks = wide::placesOf(kEscape, block);
    if ((marks | carried) == 0) {
      wide::store(out, Block{unshifted(block.low, 0), unshifted(block.high, 0)});
      out += kBlock;
      continue;
    }
    const EscapePairs<std::uint32_t> pairs = pairedOff(marks, carried);
    const Block result{unshifted(block.low, pairs.escaped), unshifted(block.high, pairs.escaped >> wide::kVector)};
    out = wide::storeKept(out, result, ~pairs.escaping);
    carried = pairs.escaping >> 31;
  }
  in -= carried;  // the "=" of a pair that is cut goes with what follows
  const auto done = static_cast<std::size_t>(out - bytes.data());
  return done + scalar::decode({in, end}, bytes.subspan(done));
}

#endif  // WIDE_NEON

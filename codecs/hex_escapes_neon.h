/// "=XX" and "%XX" escapes, 16 bytes at a time.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_NEON

#include "codecs/hex_digits_neon.h"
#include "codecs/hex_escape_rows.h"

namespace neon {

/// Writes what four bytes show as, and what is left over behind it.
/// @param escaped  which of the four are escaped, a bit each
/// @return         behind the text
[[nodiscard]] NEON_FUNCTION inline std::uint8_t* storeQuads(std::uint8_t* out, uint16x8_t quads,
                                                            std::uint32_t escaped) noexcept {
  const uint8x16_t row = wide::load(kQuadRows[escaped].data());
  wide::store(out, wide::lookedUp(vreinterpretq_u8_u16(quads), row));
  return out + 4 + 2 * wide::kBitCounts[escaped];
}

/// Writes 16 bytes, two more for each escape. Touches at most `kEscapeOverrun` bytes beyond that.
/// @param characters  what the bytes show as that are not escaped
/// @param escaped     the bytes to escape, a bit each
/// @param mark        what an escape begins with
/// @return            behind the text
[[nodiscard]] NEON_FUNCTION inline std::uint8_t* storeEscaped(std::uint8_t* out, uint8x16_t bytes,
                                                              uint8x16_t characters, std::uint32_t escaped,
                                                              std::uint8_t mark = '=') noexcept {
  const uint8x16x2_t digits = digitsOf(bytes);
  if (escaped == 0xFFFF) {
    const uint8x16x3_t text{{wide::all(mark), digits.val[0], digits.val[1]}};
    vst3q_u8(out, text);
    return out + 3 * wide::kVector;
  }
  const uint8x16x2_t heads = vzipq_u8(characters, wide::all(mark));
  const uint8x16x2_t pairs = vzipq_u8(digits.val[0], digits.val[1]);
  const uint16x8x2_t front = vzipq_u16(vreinterpretq_u16_u8(heads.val[0]), vreinterpretq_u16_u8(pairs.val[0]));
  const uint16x8x2_t back = vzipq_u16(vreinterpretq_u16_u8(heads.val[1]), vreinterpretq_u16_u8(pairs.val[1]));
  // In order, as what is left over of each gets overwritten by the next.
  out = storeQuads(out, front.val[0], escaped & 15);
  out = storeQuads(out, front.val[1], escaped >> 4 & 15);
  out = storeQuads(out, back.val[0], escaped >> 8 & 15);
  return storeQuads(out, back.val[1], escaped >> 12);
}

}  // namespace neon

#endif  // WIDE_NEON

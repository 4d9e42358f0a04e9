/// Quoted-printable in vectors of 16 bytes, and back in blocks of 32.
#include "codecs/quoted_printable.h"

#ifdef WIDE_NEON

#include <algorithm>
#include <bit>

#include "codecs/hex_escapes_neon.h"
#include "codecs/quoted_printable_layout.h"

namespace {

using wide::all;
using wide::bits;
using wide::Block;
using wide::kBlock;
using wide::kVector;

NEON_FUNCTION inline uint8x16_t equal(uint8x16_t bytes, std::uint8_t byte) noexcept {
  return vceqq_u8(bytes, all(byte));
}

/// The bytes that can't stand for themselves in a line; line breaks are among them.
NEON_FUNCTION inline uint8x16_t notLiteral(uint8x16_t bytes) noexcept {
  const uint8x16_t outside = vcgeq_u8(vsubq_u8(bytes, all(0x20)), all(0x7F - 0x20));
  return vorrq_u8(vbicq_u8(outside, equal(bytes, '\t')), equal(bytes, '='));
}

/// 16 bytes of text with LF in place of each CR, and with the byte it stands for in place of each "=".
/// @param values   what the characters count as that are digits
/// @param further  the same for the next 16
NEON_FUNCTION inline uint8x16_t decoded(uint8x16_t bytes, uint8x16_t values, uint8x16_t further) noexcept {
  const uint8x16_t pairs = vsliq_n_u8(vextq_u8(values, further, 2), vextq_u8(values, further, 1), 4);
  return vbslq_u8(equal(bytes, '\r'), all('\n'), vbslq_u8(equal(bytes, '='), pairs, bytes));
}

/// Marks "=", CR and LF.
NEON_FUNCTION inline uint8x16_t specials(uint8x16_t bytes) noexcept {
  return vorrq_u8(equal(bytes, '='), vorrq_u8(equal(bytes, '\r'), equal(bytes, '\n')));
}

}  // namespace

NEON_FUNCTION quoted_printable::Progress quoted_printable::neon::escape(ByteView bytes, std::size_t limit,
                                                                        std::uint8_t* out) noexcept {
  const std::uint8_t* in = bytes.data();
  const std::uint8_t* const end = in + std::min(bytes.size(), limit);
  while (static_cast<std::size_t>(end - in) >= kVector) {
    const uint8x16_t vector = wide::load(in);
    const uint8x16_t special = notLiteral(vector);
    if (!wide::any(special)) [[likely]] {
      wide::store(out, vector);
      in += kVector;
      out += kVector;
      continue;
    }
    const std::uint32_t breaks = bits(vorrq_u8(equal(vector, '\r'), equal(vector, '\n')));
    const auto count = static_cast<unsigned>(std::countr_zero(breaks | 1U << kVector));
    const std::uint32_t escaped = bits(special) & ((1U << count) - 1);
    // What is written for the bytes behind the break, one character each, gets overwritten.
    out = ::neon::storeEscaped(out, vector, vector, escaped) - (kVector - count);
    in += count;
    if (breaks != 0) return {in, out};
  }
  return scalar::escape({in, end}, limit, out);
}

NEON_FUNCTION std::size_t quoted_printable::neon::decode(ByteView text, ByteSpan bytes) noexcept {
  const std::uint8_t* const end = text.data() + text.size();
  Progress at{text.data(), bytes.data()};
  while (static_cast<std::size_t>(end - at.in) >= kBlock) {
    const Block block = wide::loadBlock(at.in);
    if (!wide::any(vorrq_u8(specials(block.low), specials(block.high)))) {
      wide::store(at.out, block);
      at = {at.in + kBlock, at.out + kBlock};
      continue;
    }
    const ::neon::HexValues low = ::neon::hexValues(block.low);
    const ::neon::HexValues high = ::neon::hexValues(block.high);
    const Layout layout = layoutOf(wide::placesOf('=', block), wide::placesOf('\r', block), wide::placesOf('\n', block),
                                   bits(Block{low.isDigit, high.isDigit}));
    const auto count = layout.odd != 0 ? static_cast<unsigned>(std::countr_zero(layout.odd)) : unsigned{kBlock};
    if (count == 0) {
      at = scalar::decodeSpecial(at, end);
      continue;
    }
    const std::uint32_t kept = ~layout.dropped & (~std::uint32_t{0} >> (kBlock - count));
    const Block result{decoded(block.low, low.values, high.values), decoded(block.high, high.values, all(0))};
    at = {at.in + count, wide::storeKept(at.out, result, kept)};
  }
  const auto done = static_cast<std::size_t>(at.out - bytes.data());
  return done + scalar::decode({at.in, end}, bytes.subspan(done));
}

#endif  // WIDE_NEON

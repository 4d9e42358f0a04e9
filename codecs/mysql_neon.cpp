/// MySQL unescaping in blocks of 32 bytes.
#include "codecs/mysql.h"

#ifdef WIDE_NEON

#include "codecs/escape_pairs.h"
#include "codecs/mysql_escapes.h"
#include "wide/neon.h"

namespace {

using wide::all;
using wide::Block;
using wide::kBlock;
using wide::kVector;

/// 16 bytes with what the escapes stand for in place of their second bytes, and a mask of those.
struct Unescaped {
  uint8x16_t bytes;
  uint8x16_t escaped;
};

/// @param candidates  the bytes that a backslash is before, a bit each
NEON_FUNCTION inline Unescaped unescapedVector(uint8x16_t text, std::uint32_t candidates) noexcept {
  const uint8x16_t moved = vaddq_u8(text, all(mysql::kHashOffset));
  const uint8x16_t slots = vandq_u8(veorq_u8(moved, vshrq_n_u8(moved, 4)), all(0x0F));
  const uint8x16_t escapable = vceqq_u8(wide::lookedUp(wide::load(mysql::kEscapes.second.data()), slots), text);
  const uint8x16_t escaped = vandq_u8(escapable, wide::maskOf(candidates));
  const uint8x16_t meant = wide::lookedUp(wide::load(mysql::kEscapes.meant.data()), slots);
  return {vbslq_u8(escaped, meant, text), escaped};
}

}  // namespace

NEON_FUNCTION std::size_t mysql::neon::decode(ByteView text, ByteSpan bytes) noexcept {
  const std::uint8_t* in = text.data();
  const std::uint8_t* const end = in + text.size();
  std::uint8_t* out = bytes.data();
  while (static_cast<std::size_t>(end - in) >= kBlock) {
    const Block block = wide::loadBlock(in);
    const std::uint32_t marks = wide::placesOf('\\', block);
    if (marks == 0) [[likely]] {
      wide::store(out, block);
      in += kBlock;
      out += kBlock;
      continue;
    }
    const EscapePairs<std::uint32_t> pairs = pairedOff(marks, std::uint32_t{0});
    const Unescaped low = unescapedVector(block.low, pairs.escaped);
    const Unescaped high = unescapedVector(block.high, pairs.escaped >> kVector);
    const std::uint32_t cut = pairs.escaping >> 31;  // a backslash at the end goes with what follows
    const std::uint32_t dropped = wide::bits(Block{low.escaped, high.escaped}) >> 1 | cut << 31;
    out = wide::storeKept(out, Block{low.bytes, high.bytes}, ~dropped);
    in += kBlock - cut;
  }
  const auto done = static_cast<std::size_t>(out - bytes.data());
  return done + scalar::decode({in, end}, bytes.subspan(done));
}

#endif  // WIDE_NEON

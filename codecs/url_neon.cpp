/// Percent-encoding in vectors of 16 bytes, percent-decoding in blocks of 32.
#include "codecs/url.h"

#ifdef WIDE_NEON

#include "codecs/hex_escapes_neon.h"
#include "codecs/url_characters.h"
#include "codecs/url_escape_starts.h"

namespace {

using wide::all;
using wide::Block;
using wide::kBlock;
using wide::kVector;
using wide::load;
using wide::loadBlock;

/// The bytes that are not escaped. A byte of 0x80 or above has no bit in the rows.
NEON_FUNCTION inline uint8x16_t literals(uint8x16_t bytes, uint8x16_t literalRows) noexcept {
  const uint8x16_t kBitOfHighNibble = vcombine_u8(vcreate_u8(0x8040'2010'0804'0201), vcreate_u8(0));
  return vtstq_u8(wide::lookedUp(literalRows, vandq_u8(bytes, all(0x0F))),
                  wide::lookedUp(kBitOfHighNibble, vshrq_n_u8(bytes, 4)));
}

/// The bytes with another one in place of each `from`.
NEON_FUNCTION inline uint8x16_t replaced(uint8x16_t bytes, std::uint8_t from, std::uint8_t to) noexcept {
  return vbslq_u8(vceqq_u8(bytes, all(from)), all(to), bytes);
}

/// 16 bytes of text with the byte it stands for in place of each escape's "%". Reads two more.
NEON_FUNCTION inline uint8x16_t decoded(const std::uint8_t* in, std::uint8_t plus, std::uint32_t starts) noexcept {
  const uint8x16_t values = neon::hexBytes(load(in + 1), load(in + 2));
  return vbslq_u8(wide::maskOf(starts), values, replaced(load(in), '+', plus));
}

}  // namespace

NEON_FUNCTION std::size_t url::neon::encode(ByteView bytes, Options options, ByteSpan text) noexcept {
  const uint8x16_t literalRows = load(kCharacters[options.index()].literalRows.data());
  std::uint8_t* out = text.data();
  for (; bytes.size() >= kVector; bytes = bytes.subspan(kVector)) {
    const uint8x16_t vector = load(bytes.data());
    const uint8x16_t characters = replaced(vector, ' ', '+');  // counts only where a space is not escaped
    const uint8x16_t escaped = vmvnq_u8(literals(vector, literalRows));
    if (wide::any(escaped)) {
      out = ::neon::storeEscaped(out, vector, characters, wide::bits(escaped), kEscape);
    } else {
      wide::store(out, characters);
      out += kVector;
    }
  }
  const auto done = static_cast<std::size_t>(out - text.data());
  return done + scalar::encode(bytes, options, text.subspan(done));
}

NEON_FUNCTION std::size_t url::neon::decode(ByteView text, Options options, ByteSpan bytes) noexcept {
  const std::uint8_t plus = options.readsPlusAsSpace() ? ' ' : '+';
  const std::uint8_t* in = text.data();
  std::size_t left = text.size();
  std::uint8_t* out = bytes.data();
  std::uint64_t carried = 0;  // the bytes that belong to the last escape of the block before
  for (; left >= kBlock + kEscapeSize - 1; in += kBlock, left -= kBlock) {
    const Block block = loadBlock(in);
    const std::uint64_t marks = wide::placesOf(kEscape, block);
    if ((marks | carried) == 0) {
      wide::store(out, Block{replaced(block.low, '+', plus), replaced(block.high, '+', plus)});
      out += kBlock;
      continue;
    }
    const std::uint32_t starts = escapeStarts(static_cast<std::uint32_t>(marks & ~carried));
    const std::uint64_t dropped = digitsOf(starts) | carried;
    const Block result{decoded(in, plus, starts), decoded(in + kVector, plus, starts >> kVector)};
    out = wide::storeKept(out, result, static_cast<std::uint32_t>(~dropped));
    carried = dropped >> kBlock;
  }
  const std::size_t cut = wide::kBitCounts[static_cast<std::size_t>(carried)];
  const auto done = static_cast<std::size_t>(out - bytes.data());
  return done + scalar::decode({in + cut, left - cut}, options, bytes.subspan(done));
}

#endif  // WIDE_NEON

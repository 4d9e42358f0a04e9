/// The rewriting of booleans, 32 bytes at a time.
#include "analysis/sql_booleans.h"

#ifdef WIDE_NEON

#include <bit>

#include "analysis/sql_booleans_quotes.h"
#include "analysis/sql_booleans_words.h"
#include "wide/neon.h"

namespace {

using wide::all;
using wide::Block;
using wide::kBlock;
using wide::kVector;

/// Bytes that a step may touch: a keyword that begins in the block, and as much as a block after it.
constexpr std::size_t kTouched = kBlock - 1 + 5 + kBlock;

NEON_FUNCTION inline uint8x16_t loadLowerCase(const std::uint8_t* bytes) noexcept {
  return vorrq_u8(wide::load(bytes), all(0x20));
}

/// Marks the places, among 16, where three letters are those that begin a keyword.
NEON_FUNCTION inline uint8x16_t keywordStarts(const std::uint8_t* in) noexcept {
  const uint8x16_t first = loadLowerCase(in);
  const uint8x16_t second = loadLowerCase(in + 1);
  const uint8x16_t third = loadLowerCase(in + 2);
  const uint8x16_t tr = vandq_u8(vceqq_u8(first, all('t')), vceqq_u8(second, all('r')));
  const uint8x16_t fa = vandq_u8(vceqq_u8(first, all('f')), vceqq_u8(second, all('a')));
  return vorrq_u8(vandq_u8(tr, vceqq_u8(third, all('u'))), vandq_u8(fa, vceqq_u8(third, all('l'))));
}

NEON_FUNCTION inline uint8x16_t quotes(uint8x16_t bytes) noexcept {
  return vorrq_u8(vceqq_u8(bytes, all('\'')), vceqq_u8(bytes, all('"')));
}

}  // namespace

NEON_FUNCTION void sql_booleans::neon::rewrite(ByteView sql, ByteSpan out, Progress& progress) noexcept {
  const std::uint8_t* const in = sql.data();
  std::size_t read = progress.read;
  std::uint8_t* to = out.data() + progress.written;  // where the byte at `read` goes
  while (sql.size() - read >= kTouched) {
    const std::uint8_t* const block = in + read;
    const Block bytes = wide::loadBlock(block);
    const Block starts{keywordStarts(block), keywordStarts(block + kVector)};
    BlockStep<kBlock> step(block, to);
    const uint8x16_t anyQuote = vorrq_u8(quotes(bytes.low), quotes(bytes.high));
    if (wide::any(vorrq_u8(anyQuote, vorrq_u8(starts.low, starts.high)))) {
      const unsigned single = wide::placesOf('\'', bytes);
      const unsigned twofold = wide::placesOf('"', bytes);
      unsigned left = wide::bits(starts) & ~withinQuotes(single, twofold, progress.openQuote);
      for (; left != 0; left &= left - 1) {
        const auto place = static_cast<std::size_t>(std::countr_zero(left));
        const std::size_t length = keywordLength(sql, read + place);
        if (length != 0) step.replaceKeyword(block + place, length);
      }
    }
    to = step.toEnd();
    read = static_cast<std::size_t>(step.end() - in);
  }
  progress.read = read;
  progress.written = static_cast<std::size_t>(to - out.data());
}

#endif  // WIDE_NEON

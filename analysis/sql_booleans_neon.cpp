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

NEON_FUNCTION inline void copyBlock(const std::uint8_t* in, std::uint8_t* out) noexcept {
  wide::store(out, wide::loadBlock(in));
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
    const std::size_t start = read;
    std::size_t end = start + kBlock;
    const Block bytes = wide::loadBlock(in + start);
    const Block starts{keywordStarts(in + start), keywordStarts(in + start + kVector)};
    wide::store(to, bytes);
    const uint8x16_t anyQuote = vorrq_u8(quotes(bytes.low), quotes(bytes.high));
    unsigned keywords = 0;
    if (wide::any(vorrq_u8(anyQuote, vorrq_u8(starts.low, starts.high)))) {
      const unsigned single = wide::placesOf('\'', bytes);
      const unsigned twofold = wide::placesOf('"', bytes);
      keywords = wide::bits(starts) & ~withinQuotes(single, twofold, progress.openQuote);
    }
    for (; keywords != 0; keywords &= keywords - 1) {
      const std::size_t position = start + static_cast<std::size_t>(std::countr_zero(keywords));
      const std::size_t length = keywordLength(sql, position);
      if (length == 0) continue;
      to += position - read;
      *to++ = numberFor(length);
      read = position + length;
      copyBlock(in + read, to);
      if (read > end) [[unlikely]]
        end = read;
    }
    to += end - read;
    read = end;
  }
  progress.read = read;
  progress.written = static_cast<std::size_t>(to - out.data());
}

#endif  // WIDE_NEON

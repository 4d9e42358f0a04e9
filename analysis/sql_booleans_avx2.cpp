/// The rewriting of booleans, 32 bytes at a time.
#include "analysis/sql_booleans.h"

#ifdef WIDE_AVX2

#include "analysis/sql_booleans_words.h"
#include "memory/wrapping.h"
#include "wide/vectors.h"

namespace {

using wide::load;

constexpr std::size_t kVector = wide::kVector;

/// Bytes that a step may touch: a keyword that begins in the vector, and as much as a vector after it.
constexpr std::size_t kTouched = kVector - 1 + 5 + kVector;

AVX2_FUNCTION inline __m256i loadLowerCase(const std::uint8_t* bytes) noexcept {
  return _mm256_or_si256(load(bytes), wide::all(0x20));
}

AVX2_FUNCTION inline void copyVector(const std::uint8_t* in, std::uint8_t* out) noexcept { wide::store(out, load(in)); }

AVX2_FUNCTION inline __m256i areEqual(__m256i bytes, std::uint8_t byte) noexcept {
  return _mm256_cmpeq_epi8(bytes, wide::all(byte));
}

/// Marks the places where three letters are those that begin a keyword.
AVX2_FUNCTION inline unsigned keywordStarts(const std::uint8_t* in) noexcept {
  const __m256i first = loadLowerCase(in);
  const __m256i second = loadLowerCase(in + 1);
  const __m256i third = loadLowerCase(in + 2);
  const __m256i tru =
      _mm256_and_si256(_mm256_and_si256(areEqual(first, 't'), areEqual(second, 'r')), areEqual(third, 'u'));
  const __m256i fal =
      _mm256_and_si256(_mm256_and_si256(areEqual(first, 'f'), areEqual(second, 'a')), areEqual(third, 'l'));
  return wide::bits(_mm256_or_si256(tru, fal));
}

/// Marks the places from each mark of odd number up to the one after it.
unsigned fromMarkToMark(unsigned marks) noexcept {
  marks ^= marks << 1;
  marks ^= marks << 2;
  marks ^= marks << 4;
  marks ^= marks << 8;
  return marks ^ marks << 16;
}

/// `withinQuotes` for quotes of both kinds, mark by mark.
WRAPPING_FUNCTION unsigned withinMixedQuotes(unsigned single, unsigned twofold, std::uint8_t& open) noexcept {
  unsigned within = open != 0 ? ~0U : 0;
  unsigned ahead = ~0U;
  while (true) {
    const unsigned marks = ahead & (open == 0 ? single | twofold : open == '\'' ? single : twofold);
    if (marks == 0) return within;
    const unsigned mark = marks & (0U - marks);
    open = open != 0 ? 0 : (single & mark) != 0 ? '\'' : '"';
    within ^= 0U - mark;  // from the mark on
    ahead = 0U - 2 * mark;
  }
}

/// Marks what is within quotes, the opening one included, the closing one not.
/// @param open  the quote that would close what is open, or 0; as it is before and after
unsigned withinQuotes(unsigned single, unsigned twofold, std::uint8_t& open) noexcept {
  const bool onlySingle = open != '"' && twofold == 0;
  const bool onlyTwofold = open != '\'' && single == 0;
  if (!onlySingle && !onlyTwofold) return withinMixedQuotes(single, twofold, open);
  const unsigned within = fromMarkToMark(single | twofold) ^ (open != 0 ? ~0U : 0);
  open = within >> 31 == 0 ? 0 : onlySingle ? '\'' : '"';
  return within;
}

}  // namespace

AVX2_FUNCTION void sql_booleans::avx2::rewrite(ByteView sql, ByteSpan out, Progress& progress) noexcept {
  const std::uint8_t* const in = sql.data();
  std::size_t read = progress.read;
  std::uint8_t* to = out.data() + progress.written;  // where the byte at `read` goes
  while (sql.size() - read >= kTouched) {
    const std::size_t start = read;
    std::size_t end = start + kVector;
    const __m256i bytes = load(in + start);
    const unsigned single = wide::bits(areEqual(bytes, '\''));
    const unsigned twofold = wide::bits(areEqual(bytes, '"'));
    unsigned keywords = keywordStarts(in + start);
    copyVector(in + start, to);
    if ((single | twofold | keywords) != 0) keywords &= ~withinQuotes(single, twofold, progress.openQuote);
    for (; keywords != 0; keywords &= keywords - 1) {
      const std::size_t position = start + _tzcnt_u32(keywords);
      const std::size_t length = keywordLength(sql, position);
      if (length == 0) continue;
      to += position - read;
      *to++ = numberFor(length);
      read = position + length;
      copyVector(in + read, to);
      if (read > end) [[unlikely]]
        end = read;
    }
    to += end - read;
    read = end;
  }
  progress.read = read;
  progress.written = static_cast<std::size_t>(to - out.data());
}

#endif  // WIDE_AVX2

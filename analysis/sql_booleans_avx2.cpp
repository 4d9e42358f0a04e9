/// The rewriting of booleans, 32 bytes at a time.
#include "analysis/sql_booleans.h"

#ifdef WIDE_AVX2

#include "analysis/sql_booleans_quotes.h"
#include "analysis/sql_booleans_words.h"
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

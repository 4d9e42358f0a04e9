/// The rewriting of booleans, 32 bytes at a time.
#include "analysis/sql_booleans.h"

#ifdef WIDE_AVX2

#include "analysis/sql_booleans_quotes.h"
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

AVX2_FUNCTION inline __m256i areEqual(__m256i bytes, std::uint8_t byte) noexcept {
  return _mm256_cmpeq_epi8(bytes, wide::all(byte));
}

/// The places where three letters are those that begin a keyword: 0xFF there.
struct Starts {
  __m256i tru;
  __m256i fal;

  AVX2_FUNCTION explicit Starts(const std::uint8_t* in) noexcept {
    const __m256i first = loadLowerCase(in);
    const __m256i second = loadLowerCase(in + 1);
    const __m256i third = loadLowerCase(in + 2);
    tru = _mm256_and_si256(_mm256_and_si256(areEqual(first, 't'), areEqual(second, 'r')), areEqual(third, 'u'));
    fal = _mm256_and_si256(_mm256_and_si256(areEqual(first, 'f'), areEqual(second, 'a')), areEqual(third, 'l'));
  }

  [[nodiscard]] AVX2_FUNCTION inline unsigned marks() const noexcept { return wide::bits(_mm256_or_si256(tru, fal)); }
};

/// Marks the delimiters among 32 bytes.
AVX2_FUNCTION inline unsigned delimiters(const std::uint8_t* in) noexcept {
  const __m256i bytes = load(in);
  // Each of the four by its low half; no other byte, but for zero, meets itself there.
  const __m256i kByLowHalf =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 0, 0, 0, 0, 0, 0, 0, '(', ')', 0, ';', ',', 0, 0, 0));
  const __m256i punctuation = _mm256_cmpeq_epi8(_mm256_shuffle_epi8(kByLowHalf, bytes), bytes);
  const __m256i belowOrAbove = _mm256_cmpgt_epi8(wide::all(0x21), bytes);  // 0x80 and more is below zero here
  return wide::bits(_mm256_or_si256(punctuation, belowOrAbove));
}

/// Marks the keywords that stand as words of their own.
struct Keywords {
  unsigned trues;
  unsigned falses;

  /// @param afterDelimiter  whether a delimiter, or nothing, is before the first place
  AVX2_FUNCTION Keywords(const std::uint8_t* in, const Starts& starts, bool afterDelimiter) noexcept {
    const __m256i fourth = loadLowerCase(in + 3);
    const __m256i fifth = loadLowerCase(in + 4);
    trues = wide::bits(_mm256_and_si256(starts.tru, areEqual(fourth, 'e')));
    falses = wide::bits(_mm256_and_si256(starts.fal, _mm256_and_si256(areEqual(fourth, 's'), areEqual(fifth, 'e'))));
    const unsigned here = delimiters(in);
    const unsigned fiveOn = delimiters(in + 5);
    const unsigned before = here << 1 | (afterDelimiter ? 1 : 0);
    trues &= before & (fiveOn << 1 | (here >> 4 & 1));
    falses &= before & fiveOn;
  }
};

}  // namespace

WRAPPING_FUNCTION AVX2_FUNCTION void sql_booleans::avx2::rewrite(ByteView sql, ByteSpan out,
                                                                 Progress& progress) noexcept {
  const std::uint8_t* const in = sql.data();
  std::size_t read = progress.read;
  std::uint8_t* to = out.data() + progress.written;  // where the byte at `read` goes
  while (sql.size() - read >= kTouched) {
    const std::uint8_t* const block = in + read;
    const __m256i bytes = load(block);
    const unsigned single = wide::bits(areEqual(bytes, '\''));
    const unsigned twofold = wide::bits(areEqual(bytes, '"'));
    const Starts starts(block);
    BlockStep<kVector> step(block, to);
    if ((single | twofold | starts.marks()) != 0) {
      const unsigned unprotected = ~withinQuotes(single, twofold, progress.openQuote);
      const Keywords keywords(block, starts, isBorder(sql, read - 1));
      for (unsigned left = (keywords.trues | keywords.falses) & unprotected; left != 0; left &= left - 1) {
        const unsigned place = _tzcnt_u32(left);
        step.replaceKeyword(block + place, 5 - (keywords.trues >> place & 1));
      }
    }
    to = step.toEnd();
    read = static_cast<std::size_t>(step.end() - in);
  }
  progress.read = read;
  progress.written = static_cast<std::size_t>(to - out.data());
}

#endif  // WIDE_AVX2

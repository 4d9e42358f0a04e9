/// The plain form of the rewriting, and the choice between the forms.
#include "analysis/sql_booleans.h"

#include <cstring>

#include "analysis/sql_booleans_words.h"

namespace {

using sql_booleans::kClasses;
using sql_booleans::kDelimiter;
using sql_booleans::kFirstLetter;
using sql_booleans::kQuote;

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 96;

/// The first quote from a position on, or the first letter of what might be a keyword; the end when there is neither.
std::size_t findCandidate(ByteView sql, std::size_t position) noexcept {
  // Whether the last byte was a delimiter is moved to the bit of first letters, which count after one only.
  static_assert(kDelimiter >> 1 == kFirstLetter);
  unsigned before = position == 0 ? kDelimiter : kClasses[sql[position - 1]];
  for (; position < sql.size(); ++position) {
    const unsigned current = kClasses[sql[position]];
    if ((current & (kQuote | (before >> 1 & kFirstLetter))) != 0) break;
    before = current;
  }
  return position;
}

/// The position after the next quote, or the end.
std::size_t afterQuote(ByteView sql, std::size_t position, std::uint8_t quote) noexcept {
  if (position == sql.size()) return position;
  const void* const found = std::memchr(sql.data() + position, quote, sql.size() - position);
  return found != nullptr ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - sql.data()) + 1
                          : sql.size();
}

/// Copies what has been read over.
void copyUntil(std::size_t position, ByteView sql, ByteSpan out, sql_booleans::Progress& progress) noexcept {
  const std::size_t size = position - progress.read;
  if (size != 0) std::memcpy(out.data() + progress.written, sql.data() + progress.read, size);
  progress.read += size;
  progress.written += size;
}

}  // namespace

std::size_t sql_booleans::replace(ByteView sql, ByteSpan out) noexcept {
  Progress progress;
#ifdef WIDE_AVX2
  if (sql.size() >= kWideFrom && cpu::hasAvx2()) avx2::rewrite(sql, out, progress);
#endif
#ifdef WIDE_NEON
  if (sql.size() >= kWideFrom && cpu::hasNeon()) neon::rewrite(sql, out, progress);
#endif
  scalar::rewrite(sql, out, progress);
  return progress.written;
}

void sql_booleans::scalar::rewrite(ByteView sql, ByteSpan out, Progress& progress) noexcept {
  std::size_t position = progress.read;
  if (progress.openQuote != 0) position = afterQuote(sql, position, progress.openQuote);
  while ((position = findCandidate(sql, position)) < sql.size()) {
    if (kClasses[sql[position]] == kQuote) {
      position = afterQuote(sql, position + 1, sql[position]);
    } else if (const std::size_t length = keywordLength(sql, position); length != 0) {
      copyUntil(position, sql, out, progress);
      out[progress.written++] = numberFor(length);
      progress.read += length;
      position = progress.read;
    } else {
      ++position;
    }
  }
  copyUntil(position, sql, out, progress);
}

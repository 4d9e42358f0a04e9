/// Boolean literals of SQL statements, rewritten as numbers.
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace sql_booleans {

/// Copies a statement with "1" for each word TRUE and "0" for each word FALSE, in any letter case. What is within
/// single or double quotes stays as it is; a quote that isn't closed protects the rest. Comments and backslashes have
/// no meaning. Words end at bytes below 0x21 or above 0x7F, parentheses, commas and semicolons.
/// @param out  as long as `sql`: no result is longer; may not overlap it
/// @return the length of the result
[[nodiscard]] std::size_t replace(ByteView sql, ByteSpan out) noexcept;

/// How far a statement is rewritten.
struct Progress {
  std::size_t read = 0;        ///< bytes of the statement
  std::size_t written = 0;     ///< bytes of the result
  std::uint8_t openQuote = 0;  ///< the quote that would close the one that is open, or 0
};

namespace scalar {
/// Rewrites a statement to its end.
void rewrite(ByteView sql, ByteSpan out, Progress& progress) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
/// Rewrites a statement as far as whole vectors go.
void rewrite(ByteView sql, ByteSpan out, Progress& progress) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
/// Rewrites a statement as far as whole vectors go.
void rewrite(ByteView sql, ByteSpan out, Progress& progress) noexcept;
}  // namespace neon
#endif

}  // namespace sql_booleans

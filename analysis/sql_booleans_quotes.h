/// Which of 32 bytes of a statement are within quotes, found from a bit for each quote.
#pragma once

#include <cstdint>

#include "memory/wrapping.h"

namespace sql_booleans {

/// Marks the places from each mark of odd number up to the one after it.
inline unsigned fromMarkToMark(unsigned marks) noexcept {
  marks ^= marks << 1;
  marks ^= marks << 2;
  marks ^= marks << 4;
  marks ^= marks << 8;
  return marks ^ marks << 16;
}

/// `withinQuotes` for quotes of both kinds, mark by mark.
WRAPPING_FUNCTION inline unsigned withinMixedQuotes(unsigned single, unsigned twofold, std::uint8_t& open) noexcept {
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
inline unsigned withinQuotes(unsigned single, unsigned twofold, std::uint8_t& open) noexcept {
  const bool onlySingle = open != '"' && twofold == 0;
  const bool onlyTwofold = open != '\'' && single == 0;
  if (!onlySingle && !onlyTwofold) return withinMixedQuotes(single, twofold, open);
  const unsigned within = fromMarkToMark(single | twofold) ^ (open != 0 ? ~0U : 0);
  open = within >> 31 == 0 ? 0 : onlySingle ? '\'' : '"';
  return within;
}

}  // namespace sql_booleans

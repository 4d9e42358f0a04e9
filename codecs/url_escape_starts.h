/// Where percent escapes begin among 32 bytes, a bit each.
#pragma once

#include <cstdint>

#include "memory/wrapping.h"

namespace url {

/// Characters of an escape.
inline constexpr unsigned kEscapeSize = 3;

/// Of the "%" among the bytes those that begin an escape: from the left, one among the two characters of an escape
/// doesn't.
WRAPPING_FUNCTION constexpr std::uint32_t escapeStarts(std::uint32_t marks) noexcept {
  if ((marks & (marks << 1 | marks << 2)) == 0) return marks;
  std::uint32_t starts = 0;
  while (marks != 0) {
    const std::uint32_t first = marks & (0 - marks);
    starts |= first;
    marks &= ~(first * 0b111);
  }
  return starts;
}

static_assert(escapeStarts(0b0100'1001) == 0b0100'1001 && escapeStarts(0b1001'1111) == 0b1000'1001);

/// The bytes that belong to the "%" before them, those of the next vector included.
constexpr std::uint64_t digitsOf(std::uint32_t starts) noexcept { return std::uint64_t{starts} * 0b110; }

}  // namespace url

/// Which of 64 bytes are in a tag, found from a bit for each bracket.
#pragma once

#include <cstdint>

#include "memory/wrapping.h"

namespace tags {

/// Where things are among up to 64 bytes, a bit each.
struct Brackets {
  std::uint64_t opening;
  std::uint64_t closing;
  std::uint64_t zeros;
};

/// What becomes of each of up to 64 bytes. Brackets and zero bytes are neither.
struct Sorted {
  std::uint64_t outside;
  std::uint64_t inside;
};

/// Bit n is set when an odd number of the bits up to and including n are.
[[nodiscard]] inline std::uint64_t parities(std::uint64_t bits) noexcept {
  for (int distance = 1; distance < 64; distance *= 2) bits ^= bits << distance;
  return bits;
}

/// The places at depth 0, found one bracket after the other. Seldom needed, and kept out of the loops.
[[nodiscard, gnu::noinline]] WRAPPING_FUNCTION static std::uint64_t atDepthZero(const Brackets& brackets,
                                                                                std::int64_t& depth) noexcept {
  std::uint64_t outside = depth == 0 ? ~std::uint64_t{0} : 0;
  for (std::uint64_t left = brackets.opening | brackets.closing; left != 0; left &= left - 1) {
    depth += (brackets.opening & left & (0 - left)) != 0 ? 1 : -1;
    const std::uint64_t fromHere = 0 - (left & (0 - left));
    outside = depth == 0 ? outside | fromHere : outside & ~fromHere;
  }
  return outside;
}

/// Sorts the bytes and moves the depth on behind them.
[[nodiscard]] static inline Sorted sorted(const Brackets& brackets, std::int64_t& depth) noexcept {
  // Where brackets open and close by turns, as in nearly all markup, their parity tells where the tags are.
  std::uint64_t outside = ~(parities(brackets.opening | brackets.closing) ^ static_cast<std::uint64_t>(0 - depth));
  const bool byTurns = ((outside & brackets.opening) | (~outside & brackets.closing)) == 0;
  if (byTurns && (depth == 0 || depth == 1)) [[likely]] {
    depth = static_cast<std::int64_t>(outside >> 63 ^ 1);
  } else {
    outside = atDepthZero(brackets, depth);
  }
  const std::uint64_t text = ~(brackets.opening | brackets.closing | brackets.zeros);
  return {outside & text, ~outside & text};
}

}  // namespace tags

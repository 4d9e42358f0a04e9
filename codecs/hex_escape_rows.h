/// How "=XX" and "%XX" escapes and the characters between them move together, four bytes at a time.
#pragma once

#include <array>
#include <cstdint>

/// Four bytes as [character, mark, high digit, low digit] each. For each choice of those that are escaped: the
/// shuffle that keeps one character, or the other three, of each.
inline constexpr auto kQuadRows = [] {
  std::array<std::array<std::uint8_t, 16>, 16> rows{};
  for (unsigned escaped = 0; escaped < rows.size(); ++escaped) {
    unsigned kept = 0;
    for (unsigned quad = 0; quad < 4; ++quad) {
      const bool isEscaped = (escaped >> quad & 1U) != 0;
      for (unsigned i = isEscaped ? 1 : 0; i < (isEscaped ? 4U : 1U); ++i) {
        rows[escaped][kept++] = static_cast<std::uint8_t>(4 * quad + i);
      }
    }
    while (kept < 16) rows[escaped][kept++] = 0x80;
  }
  return rows;
}();

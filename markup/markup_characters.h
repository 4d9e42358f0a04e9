/// The characters that markup is made of, and those that the encoders drop.
#pragma once

#include <cstdint>

#include "memory/byte_view.h"

namespace markup {

/// Quotation mark, ampersand, apostrophe, less-than sign, greater-than sign.
template <typename Unit>
[[nodiscard]] constexpr bool isMarkupCharacter(Unit unit) noexcept {
  return (unit == 0x22) | ((unit & ~Unit{1}) == 0x26) | ((unit & ~Unit{2}) == 0x3C);
}

/// The control characters that don't survive encoding: all below U+0020 but TAB, LF and CR.
[[nodiscard]] constexpr bool isDroppedControl(char32_t codePoint) noexcept {
  constexpr std::uint32_t kDropped = 0xFFFF'D9FF;
  return codePoint < 0x20 && ((kDropped >> codePoint) & 1) != 0;
}

/// The text behind one byte-order mark, of either byte order, at its start.
[[nodiscard]] constexpr Utf32View withoutByteOrderMark(Utf32View text) noexcept {
  const bool marked = !text.empty() && (text[0] == 0xFEFF || text[0] == 0xFFFE);
  return text.subspan(marked ? 1 : 0);
}

/// Finds some characters below U+0080 among 16 bytes with one shuffle: the entry at a byte's low four bits equals
/// the byte exactly when it is one of them. No two of them may share their low four bits.
struct alignas(16) NibbleTable {
  std::uint8_t entries[16];

  template <std::size_t kCount>
  explicit consteval NibbleTable(const std::uint8_t (&characters)[kCount]) : entries{} {
    // An entry that no byte equals: with its top bit set, a byte shuffles to 0, not to its entry.
    for (std::uint8_t& entry : entries) entry = 0x80;
    for (const std::uint8_t character : characters) {
      if (entries[character & 0x0F] != 0x80) throw "two characters share their low four bits";
      entries[character & 0x0F] = character;
    }
  }
};

/// What tag removal looks at.
inline constexpr NibbleTable kBracketOrZero({0x00, '<', '>'});

/// What ends the search for a markup character: one of them, or U+0000.
inline constexpr NibbleTable kMarkupOrNul({0x00, '"', '&', '\'', '<', '>'});

/// Where "is it below U+0020" and "is it worth writing" disagree: markup, and the three control characters that are
/// kept.
inline constexpr NibbleTable kMarkupOrKeptControl({'"', '&', '\'', '<', '>', '\t', '\n', '\r'});
inline constexpr NibbleTable kKeptControl({'\t', '\n', '\r'});

}  // namespace markup

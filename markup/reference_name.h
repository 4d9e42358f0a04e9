/// The name between "&" and ";" of a character reference.
#pragma once

#include <cstdint>

#include "markup/entity_columns.h"
#include "memory/wrapping.h"

namespace entity_decoder {

/// One to eight code points, those beyond ASCII as 0x7F or 0x80: no such byte is part of a name that means something.
struct ReferenceName {
  entities::PackedName packed;
  unsigned length;  ///< 0: there is no reference; the name is neither number nor entity
};

/// Reads the name of a reference.
/// @param at  behind the "&", not at the end of the text
[[nodiscard]] inline ReferenceName readName(const char32_t* at, const char32_t* end) noexcept {
  ReferenceName name{};
  for (const char32_t* c = at; c != end && *c != ';'; ++c) {
    if (name.length == entities::kLongestName) return {};
    name.packed |= entities::PackedName{*c < 0x80 ? *c : 0x7F} << (8 * name.length);
    ++name.length;
  }
  return name;
}

[[nodiscard]] constexpr bool isNumeric(ReferenceName name) noexcept { return (name.packed & 0xFF) == '#'; }

/// The value of a digit, or 16 for anything else.
[[nodiscard]] WRAPPING_FUNCTION constexpr std::uint32_t digitValue(std::uint32_t character) noexcept {
  if (character - '0' < 10) return character - '0';
  const std::uint32_t letter = (character | 0x20) - 'a';
  return letter < 6 ? letter + 10 : 16;
}

/// The value of a numeric name, or 0 when it stands for no character. A minus sign among the digits makes it negative,
/// and so no character.
[[nodiscard]] constexpr std::uint32_t numericValue(ReferenceName name) noexcept {
  const bool hexadecimal = (name.packed >> 8 & 0xFF) == 'x';
  const std::uint32_t base = hexadecimal ? 16 : 10;
  std::uint32_t value = 0;
  for (entities::PackedName rest = name.packed >> (hexadecimal ? 16 : 8);; rest >>= 8) {
    const auto character = static_cast<std::uint32_t>(rest & 0xFF);
    const std::uint32_t digit = digitValue(character);
    if (digit >= base) return character == '-' ? 0 : value;
    value = base * value + digit;
  }
}

/// False for names that need no lookup: table names begin with a letter, and packed, a name with U+0000 as its last
/// character looks like a shorter one.
[[nodiscard]] WRAPPING_FUNCTION constexpr bool mayBeEntity(ReferenceName name) noexcept {
  const auto first = static_cast<std::uint32_t>(name.packed & 0xFF);
  return ((first | 0x20) - 'a') < 26 && name.packed >> (8 * (name.length - 1)) != 0;
}

}  // namespace entity_decoder

/// Hexadecimal digits: the characters that are written, and the value of a character that is read.
#pragma once

#include <array>
#include <cstdint>

/// The digit of each value from 0 to 15; upper case is the only case written.
inline constexpr std::array<std::uint8_t, 16> kHexDigits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                                            '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};

/// What each byte counts as when it is read as a digit: 0 to 15 for digits of either case, 0 for anything else.
inline constexpr std::array<std::uint8_t, 256> kHexValues = [] {
  std::array<std::uint8_t, 256> values{};
  for (unsigned value = 0; value < kHexDigits.size(); ++value) {
    values[kHexDigits[value]] = static_cast<std::uint8_t>(value);
    if (value > 9) values[kHexDigits[value] | 0x20U] = static_cast<std::uint8_t>(value);
  }
  return values;
}();

static_assert(kHexValues['0'] == 0 && kHexValues['9'] == 9 && kHexValues['A'] == 10 && kHexValues['f'] == 15);
static_assert(kHexValues['G'] == 0 && kHexValues['`'] == 0 && kHexValues['@'] == 0 && kHexValues[0xFF] == 0);

/// The byte that two characters spell, the high digit first.
[[nodiscard]] constexpr std::uint8_t hexByte(std::uint8_t high, std::uint8_t low) noexcept {
  return static_cast<std::uint8_t>(kHexValues[high] << 4 | kHexValues[low]);
}

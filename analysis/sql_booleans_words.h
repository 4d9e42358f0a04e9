/// What the plain and the wide rewriting of booleans have in common: the words of a statement.
#pragma once

#include <array>
#include <cstring>
#include <string_view>

#include "memory/byte_view.h"
#include "memory/wrapping.h"

namespace sql_booleans {

inline constexpr std::uint8_t kQuote = 1;
inline constexpr std::uint8_t kFirstLetter = 2;  ///< of TRUE or FALSE
inline constexpr std::uint8_t kDelimiter = 4;

inline constexpr std::array<std::uint8_t, 256> kClasses = [] {
  std::array<std::uint8_t, 256> classes{};
  for (unsigned byte = 0; byte < classes.size(); ++byte) {
    if (byte < 0x21 || byte > 0x7F) classes[byte] = kDelimiter;
  }
  for (const char c : std::string_view("(),;")) classes[static_cast<std::uint8_t>(c)] = kDelimiter;
  for (const char c : std::string_view("TtFf")) classes[static_cast<std::uint8_t>(c)] = kFirstLetter;
  for (const char c : std::string_view("'\"")) classes[static_cast<std::uint8_t>(c)] = kQuote;
  return classes;
}();

/// True at a delimiter, and beyond the bytes on either side: the position before the first one is the largest number.
inline bool isBorder(ByteView sql, std::size_t position) noexcept {
  return position >= sql.size() || kClasses[sql[position]] == kDelimiter;
}

/// Up to 8 characters as a number, the first one lowest.
constexpr std::uint64_t wordOf(std::string_view text) noexcept {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < text.size(); ++i) word |= std::uint64_t{static_cast<std::uint8_t>(text[i])} << 8 * i;
  return word;
}

/// The next 8 bytes in the same way, zeros after the end.
inline std::uint64_t wordAt(ByteView sql, std::size_t position) noexcept {
  std::uint64_t word = 0;
  const std::size_t left = sql.size() - position;
  if (left >= sizeof word) {
    std::memcpy(&word, sql.data() + position, sizeof word);
  } else {
    for (std::size_t i = 0; i < left; ++i) word |= std::uint64_t{sql[position + i]} << 8 * i;
  }
  return word;
}

/// The length of the keyword that stands at a position as a word of its own, or 0.
WRAPPING_FUNCTION inline std::size_t keywordLength(ByteView sql, std::size_t position) noexcept {
  constexpr std::uint64_t kFourBytes = 0xFFFF'FFFF;
  constexpr std::uint64_t kFiveBytes = 0xFF'FFFF'FFFF;
  const std::uint64_t lowerCase = wordAt(sql, position) | 0x2020'2020'2020'2020;
  const bool isTrue = (lowerCase & kFourBytes) == wordOf("true");
  const bool isFalse = (lowerCase & kFiveBytes) == wordOf("false");
  const std::size_t length = isTrue ? 4 : 5;
  return (isTrue || isFalse) && isBorder(sql, position - 1) && isBorder(sql, position + length) ? length : 0;
}

/// What takes the place of a keyword.
[[nodiscard]] constexpr std::uint8_t numberFor(std::size_t keywordLength) noexcept {
  return keywordLength == 4 ? '1' : '0';
}

}  // namespace sql_booleans

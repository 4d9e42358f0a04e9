/// What the plain and the wide rewritings of booleans have in common: the words of a statement, and the steps over it.
#pragma once

#include <algorithm>
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

/// A step over a block of the statement, whose bytes are copied before the keywords in it are known: each of them is
/// written over, and the block's worth behind it copied again from there.
template <std::size_t kBlock>
class BlockStep {
 public:
  BlockStep(const std::uint8_t* read, std::uint8_t* to) noexcept : read_(read), to_(to), end_(read + kBlock) {
    std::memcpy(to, read, kBlock);
  }

  void replaceKeyword(const std::uint8_t* keyword, std::size_t length) noexcept {
    to_ += keyword - read_;
    *to_++ = numberFor(length);
    read_ = keyword + length;
    std::memcpy(to_, read_, kBlock);
  }

  /// Where the next step begins: behind the block, or behind a keyword that reaches out of it.
  [[nodiscard]] const std::uint8_t* end() const noexcept { return std::max(read_, end_); }
  /// Where the byte at `end()` goes.
  [[nodiscard]] std::uint8_t* toEnd() const noexcept { return to_ + (end() - read_); }

 private:
  const std::uint8_t* read_;
  std::uint8_t* to_;
  const std::uint8_t* end_;
};

}  // namespace sql_booleans

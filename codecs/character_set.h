/// A single-byte character set ready for use: its table, and what is derived from it to go the other way.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "codecs/charset_tables.h"

/// Outside the 32 bytes from 0x80 on, which are its special ones, a byte of a set stands for the character of the
/// same number. Everything else follows from the table, at compile time.
class CharacterSet {
 public:
  /// Special characters by low nibble, in the form vector look-ups take: position n holds one character that ends
  /// in n, its two halves and its byte, or a character that doesn't end in n and so is never found there.
  struct SpecialRow {
    std::array<std::uint8_t, 16> low{};
    std::array<std::uint8_t, 16> high{};
    std::array<std::uint8_t, 16> byte{};
  };

  consteval explicit CharacterSet(const CharacterTable& table) : characters(table) {
    rows_.fill(emptyRow());
    for (unsigned byte = 256; byte-- > 0;) addToPages(byte);  // downwards: the first of equal entries stays
    for (unsigned byte = 0x80; byte < 0xA0; ++byte) addToRows(byte);
  }

  const CharacterTable characters;

  /// The lowest byte that stands for the character, or 0 when none does.
  [[nodiscard]] constexpr std::uint8_t byteOf(char16_t character) const noexcept {
    return pages_[pageOf_[character >> 8]][character & 0xFF];
  }

  /// False when a special byte stands for another character than that of its number.
  [[nodiscard]] constexpr bool isLatin1() const noexcept { return rowCount_ == 0; }

  [[nodiscard]] constexpr std::size_t rowCount() const noexcept { return rowCount_; }
  [[nodiscard]] constexpr const SpecialRow& row(std::size_t index) const noexcept { return rows_[index]; }

 private:
  static consteval SpecialRow emptyRow() {
    SpecialRow row;
    for (unsigned nibble = 0; nibble < 16; ++nibble) row.low[nibble] = static_cast<std::uint8_t>(nibble ^ 1);
    return row;
  }

  consteval void addToPages(unsigned byte) {
    std::uint8_t& page = pageOf_[characters[byte] >> 8];
    if (page == 0) page = ++lastPage_;
    pages_[page][characters[byte] & 0xFF] = static_cast<std::uint8_t>(byte);
  }

  consteval void addToRows(unsigned byte) {
    const char16_t character = characters[byte];
    if (character == byte || character == 0) return;
    std::size_t index = 0;
    while (rows_[index].byte[character & 15] != 0) ++index;
    rows_[index].low[character & 15] = static_cast<std::uint8_t>(character & 0xFF);
    rows_[index].high[character & 15] = static_cast<std::uint8_t>(character >> 8);
    rows_[index].byte[character & 15] = static_cast<std::uint8_t>(byte);
    if (rowCount_ <= index) rowCount_ = index + 1;
  }

  std::array<std::uint8_t, 256> pageOf_{};  ///< by the character's high half; page 0 is empty
  std::array<std::array<std::uint8_t, 256>, 6> pages_{};
  std::array<SpecialRow, 4> rows_{};
  std::size_t rowCount_ = 0;
  std::uint8_t lastPage_ = 0;
};

inline constexpr CharacterSet kISO8859{escapecharsISO8859};
inline constexpr CharacterSet kCP1252{escapecharsCP1252};

static_assert(kISO8859.isLatin1() && kISO8859.byteOf(0xE9) == 0xE9 && kISO8859.byteOf(0x20AC) == 0);
static_assert(!kCP1252.isLatin1() && kCP1252.byteOf(0x20AC) == 0x80 && kCP1252.byteOf(0x80) == 0);

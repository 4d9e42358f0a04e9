/// The two single-byte character sets: the character that each byte stands for.
#pragma once

#include <array>
#include <cstddef>

/// For each byte its UTF-16 code unit.
using CharacterTable = std::array<char16_t, 256>;

/// The table in which every byte stands for the character of the same number, but for the 32 bytes from 0x80 on.
[[nodiscard]] consteval CharacterTable latinTable(const std::array<char16_t, 32>& from0x80) {
  CharacterTable table{};
  for (std::size_t byte = 0; byte < table.size(); ++byte) table[byte] = static_cast<char16_t>(byte);
  for (std::size_t i = 0; i < from0x80.size(); ++i) table[0x80 + i] = from0x80[i];
  return table;
}

/// ISO-8859-1: the bytes from 0x80 to 0x9F are control characters.
inline constexpr CharacterTable escapecharsISO8859 = latinTable({
    0x80, 0x81, 0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8A, 0x8B, 0x8C, 0x8D, 0x8E, 0x8F,  // 0x80
    0x90, 0x91, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99, 0x9A, 0x9B, 0x9C, 0x9D, 0x9E, 0x9F,  // 0x90
});

/// Windows-1252: 27 printable characters there; five bytes are undefined and hold U+0000.
inline constexpr CharacterTable escapecharsCP1252 = latinTable({
    0x20AC, 0x0000, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x0000, 0x017D, 0x0000,  // 0x88
    0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x0000, 0x017E, 0x0178,  // 0x98
});

static_assert([] {
  for (std::size_t byte = 0; byte < 256; ++byte) {
    if (escapecharsISO8859[byte] != byte) return false;
  }
  return true;
}());

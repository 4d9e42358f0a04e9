/// Single-byte character sets by a search of the table from its beginning.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "codecs/charset_tables.h"

namespace reference {

inline std::string charsetEncoded(std::u16string_view text, const CharacterTable& table) {
  std::string bytes;
  for (const char16_t unit : text) {
    const auto* const found = std::find(table.begin(), table.end(), unit);
    if (found != table.end()) bytes += static_cast<char>(found - table.begin());
  }
  return bytes;
}

inline std::u16string charsetDecoded(std::string_view bytes, const CharacterTable& table) {
  std::u16string text;
  for (const char byte : bytes) text += table[static_cast<unsigned char>(byte)];
  return text;
}

}  // namespace reference

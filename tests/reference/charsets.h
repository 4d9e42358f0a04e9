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

/// Whether a buffer that starts with 1024 bytes more than the input has can grow to hold its code units, when it grows
/// to 1025 bytes beyond each unit that doesn't fit and requests of 2,147,483,633 bytes are refused.
inline bool growsWithinLimit(std::int64_t byteCount) {
  for (std::int64_t capacity = byteCount + 1024; capacity < 2 * byteCount;) {
    const std::int64_t position = capacity / 2 * 2;
    capacity = position + 1025;
    if (capacity >= 2'147'483'633) return false;
  }
  return true;
}

}  // namespace reference

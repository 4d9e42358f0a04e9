/// Mail subjects as encoded words, byte by byte.
#pragma once

#include <string>
#include <string_view>

namespace reference {

inline std::string encodedWord(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string word = "=?utf-8?Q?";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == ' ') {
      word += '_';
    } else if (character == '=' || character == '_' || byte >= 0x80) {
      word += {'=', kDigits[byte / 16], kDigits[byte % 16]};
    } else {
      word += character;
    }
  }
  return word + "?=";
}

}  // namespace reference

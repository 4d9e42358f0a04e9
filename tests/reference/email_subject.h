/// Mail subjects as encoded words, byte by byte.
#pragma once

#include <string>
#include <string_view>

#include "tests/reference/hex.h"

namespace reference {

inline std::string encodedWord(std::string_view text) {
  std::string word = "=?utf-8?Q?";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == ' ') {
      word += '_';
    } else if (character == '=' || character == '_' || byte >= 0x80) {
      word += '=' + hexEncoded({&character, 1});
    } else {
      word += character;
    }
  }
  return word + "?=";
}

}  // namespace reference

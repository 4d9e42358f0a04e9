/// The hex codec by the C library's formatting and number reading.
#pragma once

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace reference {

inline std::string hexEncoded(std::string_view bytes) {
  std::string digits;
  for (const char byte : bytes) {
    char pair[3];
    std::snprintf(pair, sizeof pair, "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    digits += pair;
  }
  return digits;
}

inline bool isHexDigit(char character) { return std::isxdigit(static_cast<unsigned char>(character)) != 0; }

inline int hexValue(char character) {
  const char digit[] = {character, '\0'};
  return isHexDigit(character) ? static_cast<int>(std::strtol(digit, nullptr, 16)) : 0;
}

inline std::string hexDecoded(std::string_view digits) {
  std::string bytes;
  for (std::size_t i = 1; i < digits.size(); i += 2) {
    bytes += static_cast<char>(hexValue(digits[i - 1]) * 16 + hexValue(digits[i]));
  }
  return bytes;
}

}  // namespace reference

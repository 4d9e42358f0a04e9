/// Percent-encoding by the C library's character classes, formatting and number reading.
#pragma once

#include <cctype>
#include <string>
#include <string_view>

#include "tests/reference/hex.h"

namespace reference {

inline std::string urlEncoded(std::string_view bytes, int options) {
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    const bool isMark = value != 0 && std::string_view("!*-.@_").find(byte) != std::string_view::npos;
    const bool isLetterOrDigit = value < 0x80 && std::isalnum(value) != 0;
    if (isMark || isLetterOrDigit || (byte == '+' && options % 3 == 0)) {
      text += byte;
    } else if (byte == ' ' && options == 1) {
      text += '+';
    } else {
      text += '%' + hexEncoded({&byte, 1});
    }
  }
  return text;
}

inline std::string urlDecoded(std::string_view text, int options) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%') {
      std::string digits(text.substr(i + 1, 2));
      digits.resize(2, 'x');
      bytes += hexDecoded(digits);
      i += 2;
    } else {
      bytes += text[i] == '+' && options % 2 == 1 ? ' ' : text[i];
    }
  }
  return bytes;
}

}  // namespace reference

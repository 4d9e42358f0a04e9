/// yEnc, byte by byte.
#pragma once

#include <string>
#include <string_view>

namespace reference {

inline std::string yencEncoded(std::string_view bytes) {
  std::string data;
  for (const char byte : bytes) {
    char stored = static_cast<char>(byte + 42);
    if (stored == '\0' || stored == '\n' || stored == '\r' || stored == '=') {
      data += '=';
      stored = static_cast<char>(stored + 64);
    }
    data += stored;
  }
  return data;
}

inline std::string yencDecoded(std::string_view data) {
  std::string bytes;
  for (std::size_t i = 0; i < data.size(); ++i) {
    if (data[i] != '=') {
      bytes += static_cast<char>(data[i] - 42);
    } else {
      ++i;
      bytes += static_cast<char>((i < data.size() ? data[i] : '\0') - 106);
    }
  }
  return bytes;
}

}  // namespace reference

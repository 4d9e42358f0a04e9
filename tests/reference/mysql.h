/// MySQL unescaping as the tables of the manual have it: one search per pair.
#pragma once

#include <string>
#include <string_view>

namespace reference {

inline std::string mysqlDecoded(std::string_view text) {
  constexpr std::string_view kSecond = "0'\"bnrtZ\\%_";
  constexpr std::string_view kMeant{"\0'\"\b\n\r\t\x1A\\%_", 11};
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isPair = text[i] == '\\' && i + 1 < text.size();
    const std::size_t known = isPair ? kSecond.find(text[i + 1]) : kSecond.npos;
    if (known != kSecond.npos) {
      bytes += kMeant[known];
      ++i;
      continue;
    }
    bytes += text[i];
    if (isPair) bytes += text[++i];
  }
  return bytes;
}

}  // namespace reference

/// Numbers as text, through the C library.
#pragma once

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace reference {

inline double withoutNanSign(double value) { return std::isnan(value) ? std::fabs(value) : value; }

inline void trimZeros(std::string& text) {
  while (text.size() >= 4 && text.ends_with("00")) text.pop_back();
}

inline std::string fixedNumber(double value) {
  std::array<char, 500> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.99f", withoutNanSign(value));
  std::string text = buffer.data();
  trimZeros(text);
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;
  std::size_t significant = 0;
  for (std::size_t i = 0; i < point; ++i) significant += text[i] != '0' ? 1 : 0;
  if (significant > 14) {
    text.resize(point);
  } else {
    const std::size_t first = std::min(text.find_first_not_of('0', point + 1), text.size());
    const std::size_t limit = first - significant + 15;
    if (text.size() > limit) text.resize(limit);
  }
  trimZeros(text);
  return text;
}

inline std::string scientificNumber(double value, int decimals) {
  std::array<char, 499> buffer{};
  const int ignored = std::snprintf(buffer.data(), buffer.size(), "%.*e", decimals, withoutNanSign(value));
  static_cast<void>(ignored);
  return buffer.data();
}

}  // namespace reference

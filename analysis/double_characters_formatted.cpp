/// Doubles through `snprintf`, whatever locale the process has set.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "analysis/double_characters.h"

namespace {

/// A sign, 309 digits, a point of up to 8 bytes, 766 decimals and the terminator.
constexpr std::size_t kRoom = 1100;

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

}  // namespace

char* double_characters::formatted::write(char* first, const char* last, double value, std::chars_format format,
                                          int decimals) noexcept {
  char text[kRoom];
  const bool isFixed = format == std::chars_format::fixed;
  const int length = std::snprintf(text, sizeof text, isFixed ? "%.*f" : "%.*e", decimals, value);
  if (length < 0 || length >= static_cast<int>(sizeof text)) return nullptr;

  // Between the digits stands the locale's point, which may take several bytes.
  char* const end = text + length;
  char* const point = std::find_if_not(text + (text[0] == '-' ? 1 : 0), end, isDigit);
  char* const rest = std::find_if(point, end, isDigit);
  const bool hasPoint = decimals > 0 && point != text && isDigit(point[-1]);
  const char* const kept = hasPoint ? rest : point;
  const auto whole = static_cast<std::size_t>(point - text);
  const auto others = static_cast<std::size_t>(end - kept);
  if (whole + others + (hasPoint ? 1 : 0) > static_cast<std::size_t>(last - first)) return nullptr;
  std::memcpy(first, text, whole);
  first += whole;
  if (hasPoint) *first++ = '.';
  std::memcpy(first, kept, others);
  return first + others;
}

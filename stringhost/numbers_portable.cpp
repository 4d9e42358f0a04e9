/// Doubles through the C library.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "stringhost/numbers.h"

namespace stringhost {
namespace {

/// A sign, 17 digits, a point and an exponent; or a whole number that is no longer than these.
constexpr std::size_t kRoom = 64;

std::string printed(const char* format, int decimals, double number) {
  char text[kRoom];
  const int length = std::snprintf(text, sizeof text, format, decimals, number);
  return {text, static_cast<std::size_t>(std::clamp(length, 0, static_cast<int>(kRoom) - 1))};
}

bool readsBack(const std::string& text, double number) { return std::strtod(text.c_str(), nullptr) == number; }

/// Makes a number in scientific notation larger in size by one in its last place; false where a digit would be added.
bool raiseLastDigit(std::string& text) {
  for (std::size_t at = text.find('e'); at-- > 0;) {
    if (text[at] >= '0' && text[at] < '9') return ++text[at], true;
    if (text[at] == '9') text[at] = '0';
  }
  return false;
}

/// Whether `strtod` is to see the text: it would skip blanks, and take a plus sign.
bool isDecimal(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && std::string_view("0123456789.iInN").find(text[0]) != std::string_view::npos;
}

}  // namespace

std::from_chars_result numbers::portable::read(const char* first, const char* last, double& number) {
  const std::string text(first, std::find_if(first, last, [](char c) { return c == 'x' || c == 'X'; }));
  if (!isDecimal(text)) return {first, std::errc::invalid_argument};
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (end == text.c_str()) return {first, std::errc::invalid_argument};
  const char* const stop = first + (end - text.c_str());
  // Too large comes back as an infinity, too small as a zero; what was written as one is no error.
  const bool isSpelled = text.find_first_of("iI") < static_cast<std::size_t>(end - text.c_str());
  const std::string_view mantissa(text.c_str(), std::min(text.find_first_of("eE"), text.size()));
  const bool isZero = mantissa.find_first_of("123456789") == std::string_view::npos;
  if ((std::isinf(value) && !isSpelled) || (value == 0 && !isZero)) return {stop, std::errc::result_out_of_range};
  number = value;
  return {stop, std::errc()};
}

std::string numbers::portable::shortest(double number) {
  if (!std::isfinite(number)) return printed("%.*f", 0, number);
  int decimals = 0;
  std::string scientific = printed("%.*e", decimals, number);
  while (!readsBack(scientific, number)) {
    // Above a power of two the neighbour is farther than below it, so that the decimal above may do.
    if (raiseLastDigit(scientific) && readsBack(scientific, number)) break;
    scientific = printed("%.*e", ++decimals, number);
  }
  const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
  // Outside of these the exponent is shorter for certain.
  if (exponent < -8 || exponent > 24) return scientific;
  const std::string fixed = printed("%.*f", std::max(decimals - exponent, 0), number);
  return fixed.size() <= scientific.size() ? fixed : scientific;
}

}  // namespace stringhost

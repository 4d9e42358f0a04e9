/// Numbers through the standard library, and the choice between the ways.
#include "analysis/number_format.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "analysis/double_characters.h"

namespace {

using number_format::kMaxDigits;
using number_format::kMaxLength;
using number_format::Text;

constexpr int kDecimals = 99;

/// From here on doubles have no fraction.
constexpr double kWholeFrom = 0x1p53;

/// After so many decimals every double is written exactly, and only zeros follow.
constexpr int kExactDecimals = 766;

/// No NaN shows its sign.
double withoutNanSign(double value) noexcept { return std::isnan(value) ? std::fabs(value) : value; }

constexpr char kZeros[] = {'0', '0', '0', '0', '0', '0', '0', '0', '0'};

/// The length without the zeros that follow a trailing zero; eight are dropped at a time while nine are there.
std::size_t trimmedLength(const char* text, std::size_t length) noexcept {
  while (length >= 3 + sizeof kZeros && std::memcmp(text + length - sizeof kZeros, kZeros, sizeof kZeros) == 0) {
    length -= sizeof kZeros - 1;
  }
  while (length >= 4 && text[length - 1] == '0' && text[length - 2] == '0') --length;
  return length;
}

/// Counts the characters other than "0", up to the number that decides.
int countSignificant(const char* text, const char* end) noexcept {
  int count = 0;
  for (; text != end && count < kMaxDigits; ++text) count += *text != '0' ? 1 : 0;
  return count;
}

/// The first character other than "0".
const char* skipZeros(const char* text, const char* end) noexcept {
  while (static_cast<std::size_t>(end - text) >= sizeof kZeros && std::memcmp(text, kZeros, sizeof kZeros) == 0) {
    text += sizeof kZeros;
  }
  while (text != end && *text == '0') ++text;
  return text;
}

/// The length that the limit on digits leaves of a text with a point.
std::size_t limitedLength(const char* text, const char* point, std::size_t length) noexcept {
  const int significant = countSignificant(text, point);
  if (significant >= kMaxDigits) return static_cast<std::size_t>(point - text);
  const char* const first = skipZeros(point + 1, text + length);
  return std::min(length, static_cast<std::size_t>(first - text + (kMaxDigits - significant)));
}

/// A text that doesn't fit: written in full as far as digits go, then cut.
[[gnu::noinline]] std::size_t writeCutScientific(double value, int decimals, Text& text) noexcept {
  char all[kExactDecimals + 16];  // sign, digit, point, decimals, exponent
  const char* const end =
      double_characters::write(all, all + sizeof all, value, std::chars_format::scientific, decimals);
  static_cast<void>(end);  // of a text this long only the beginning counts
  std::memcpy(text.data(), all, kMaxLength);
  return kMaxLength;
}

}  // namespace

std::size_t number_format::writeFixed(double value, Text& text) noexcept {
  return quick::covers(value) ? quick::writeFixed(value, text) : general::writeFixed(value, text);
}

std::size_t number_format::general::writeFixed(double value, Text& text) noexcept {
  const int decimals = std::fabs(value) < kWholeFrom ? kDecimals : 1;  // of zeros all but one would go
  char* const begin = text.data();
  const char* const end =
      double_characters::write(begin, begin + text.size(), withoutNanSign(value), std::chars_format::fixed, decimals);
  auto length = static_cast<std::size_t>(end - begin);
  const auto* const point = static_cast<const char*>(std::memchr(begin, '.', length));
  if (point == nullptr) return length;  // infinite, or not a number
  length = trimmedLength(begin, length);
  length = limitedLength(begin, point, length);
  return trimmedLength(begin, length);
}

std::size_t number_format::writeScientific(double value, std::int32_t decimals, Text& text) noexcept {
  const double shown = withoutNanSign(value);
  const int precision = std::clamp(decimals, 0, kExactDecimals);  // beyond it are zeros that are cut off anyway
  char* const begin = text.data();
  const char* const end =
      double_characters::write(begin, begin + text.size(), shown, std::chars_format::scientific, precision);
  return end != nullptr ? static_cast<std::size_t>(end - begin) : writeCutScientific(shown, precision, text);
}

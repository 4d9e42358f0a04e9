/// Doubles as text: fixed-point with a bounded number of digits, and scientific notation.
///
/// The digits are those of the exact value of the double, in the form of the "C" locale, on every platform.
/// Infinities are "inf" and "-inf"; a NaN is "nan", whatever its sign.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace number_format {

/// Room for the longest text of either form; the length ends it, not a terminator.
inline constexpr std::size_t kMaxLength = 498;
using Text = std::array<char, kMaxLength>;

/// How many digits the fixed form keeps at most.
inline constexpr int kMaxDigits = 15;

/// Writes a number without an exponent. Of its 99 decimals the first 15 from the first one that isn't 0 are kept,
/// less one for each character before the point other than "0"; what is beyond is dropped, not rounded. With more
/// than 14 such characters the point and all decimals go. Of trailing zeros one is kept.
/// @return the length of the text
[[nodiscard]] std::size_t writeFixed(double value, Text& text) noexcept;

/// Writes one digit, the decimals asked for and an exponent of at least two digits, correctly rounded.
/// @param decimals  below 0 counts as 0; of a text above 498 characters the end is missing, the exponent with it
/// @return the length of the text
[[nodiscard]] std::size_t writeScientific(double value, std::int32_t decimals, Text& text) noexcept;

/// `writeFixed` by the rule itself, for any double.
namespace general {
[[nodiscard]] std::size_t writeFixed(double value, Text& text) noexcept;
}

/// `writeFixed` by integer arithmetic: the fraction is an integer over a power of two, so the digits come out of a
/// multiplication by a power of ten and a shift, exact and cut off where the product ends.
namespace quick {

/// True for the zeros, and for sizes from 2^-28 to below 2^63.
[[nodiscard]] inline bool covers(double value) noexcept {
  const double size = std::fabs(value);
  return (size >= 0x1p-28 && size < 0x1p63) || size == 0.0;
}

/// @param value  one that is covered
[[nodiscard]] std::size_t writeFixed(double value, Text& text) noexcept;

}  // namespace quick
}  // namespace number_format

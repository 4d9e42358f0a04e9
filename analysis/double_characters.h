/// A double in characters, with a given number of decimals, in the form of the "C" locale.
#pragma once

#include <charconv>

/// Both routes write the exact value, correctly rounded with ties to the even digit: the same characters.
namespace double_characters {

/// Writes to [`first`, `last`), without a terminator.
/// @param format    `fixed` or `scientific`
/// @param decimals  from 0 to 766, after which only zeros follow; infinities and NaN have none
/// @return the end of the text, or null where it doesn't fit
[[nodiscard]] char* write(char* first, const char* last, double value, std::chars_format format, int decimals) noexcept;

/// The route of standard libraries that know no `std::to_chars` for doubles, many times slower.
namespace formatted {
[[nodiscard]] char* write(char* first, const char* last, double value, std::chars_format format, int decimals) noexcept;
}

}  // namespace double_characters

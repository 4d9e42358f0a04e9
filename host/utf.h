/// Transcoding between UTF-16 and UTF-32, for hosts that can't do it themselves.
#pragma once

#include "memory/byte_view.h"

namespace utf {

/// Bytes of UTF-16 that any `codePointCount` code points fit in, with a terminating zero unit.
[[nodiscard]] constexpr std::int64_t utf16Bound(std::int64_t codePointCount) noexcept {
  return (2 * codePointCount + 1) * 2;
}

/// Writes code points as UTF-16: surrogates are dropped, values above U+10FFFF become U+FFFD.
/// A zero unit follows the last one.
/// @param units  room for `utf16Bound` bytes
/// @return the number of units written, the zero unit not counted
std::size_t toUtf16(Utf32View codePoints, std::span<char16_t> units) noexcept;

/// Bytes of UTF-32 that any `unitCount` UTF-16 units fit in, with a terminating zero unit.
[[nodiscard]] constexpr std::int64_t utf32Bound(std::int64_t unitCount) noexcept { return 4 * unitCount + 16; }

/// Decodes UTF-16. A surrogate that is the last unit stands for itself; any other unpaired one is dropped together
/// with the unit after it. A zero unit follows the last code point.
/// @param codePoints  room for `utf32Bound` bytes
/// @return the number of code points written, the zero unit not counted
std::size_t toUtf32(Utf16View units, std::span<char32_t> codePoints) noexcept;

}  // namespace utf

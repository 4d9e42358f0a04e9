/// Conversions between UTF-8 and wider units, for the lean host: quick, and as forgiving as a host has to be.
#pragma once

#include "memory/byte_view.h"

namespace lean {

/// Decodes UTF-8, which has to be well formed.
/// @param units  room for one unit a byte
/// @return the end of what was written
char16_t* decode(ByteView utf8, char16_t* units) noexcept;
char32_t* decode(ByteView utf8, char32_t* units) noexcept;

/// Encodes as UTF-8. A surrogate without partner and a value above U+10FFFF become U+FFFD.
/// @param utf8  room for three bytes for each 16-bit unit, four for each 32-bit one
/// @return the end of what was written
std::uint8_t* encode(Utf16View units, std::uint8_t* utf8) noexcept;
std::uint8_t* encode(Utf32View units, std::uint8_t* utf8) noexcept;

}  // namespace lean

/// "=XX" and "%XX" escapes: how quoted-printable text, encoded words and URLs write the bytes that may not stand for
/// themselves.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "codecs/hex_digits.h"

/// What is written for one byte.
struct EscapedByte {
  std::array<std::uint8_t, 3> text;
  std::uint8_t length;
};

/// Room that `append` and its wide form may touch beyond what they write.
inline constexpr int kEscapeOverrun = 16;

[[nodiscard]] constexpr EscapedByte literal(std::uint8_t character) noexcept { return {{character}, 1}; }

[[nodiscard]] constexpr EscapedByte hexEscape(std::uint8_t byte, std::uint8_t mark = '=') noexcept {
  return {{mark, kHexDigits[byte >> 4], kHexDigits[byte & 0x0F]}, 3};
}

/// Writes the text and returns its end. Touches four bytes, whatever the length.
inline std::uint8_t* append(std::uint8_t* out, EscapedByte escaped) noexcept {
  std::memcpy(out, &escaped, sizeof escaped);
  return out + escaped.length;
}

/// The escapes of MySQL's string literals in the form vector look-ups take.
#pragma once

#include <array>
#include <cstdint>

#include "codecs/mysql.h"

namespace mysql {

inline constexpr unsigned kHashOffset = 15;

/// Tells the eleven bytes that can follow a backslash in an escape apart.
constexpr unsigned hashOf(unsigned byte) noexcept {
  const unsigned moved = (byte + kHashOffset) & 0xFF;
  return (moved ^ moved >> 4) & 0x0F;
}

/// By hash: the byte that can follow a backslash, and what the two stand for.
struct Escapes {
  std::array<std::uint8_t, 16> second{};
  std::array<std::uint8_t, 16> meant{};
};

inline constexpr Escapes kEscapes = [] {
  Escapes escapes;
  escapes.second[hashOf(0)] = 1;  // so that the zeros in free slots are found nowhere either
  for (unsigned byte = 0; byte < 256; ++byte) {
    const int meant = unescaped(static_cast<std::uint8_t>(byte));
    if (meant < 0) continue;
    escapes.second[hashOf(byte)] = static_cast<std::uint8_t>(byte);
    escapes.meant[hashOf(byte)] = static_cast<std::uint8_t>(meant);
  }
  return escapes;
}();

static_assert([] {
  for (unsigned byte = 0; byte < 256; ++byte) {
    const bool found = kEscapes.second[hashOf(byte)] == byte;
    if (found != (unescaped(static_cast<std::uint8_t>(byte)) >= 0)) return false;
  }
  return true;
}());

}  // namespace mysql

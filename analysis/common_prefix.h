/// Where two byte strings begin to differ.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "wide/byte_word.h"

/// The number of leading bytes that two strings of one length have in common.
[[nodiscard]] inline std::size_t commonPrefix(const std::uint8_t* a, const std::uint8_t* b,
                                              std::size_t length) noexcept {
  std::size_t i = 0;
  for (; i + 8 <= length; i += 8) {
    const std::uint64_t difference = byte_word::load(a + i) ^ byte_word::load(b + i);
    if (difference != 0) return i + static_cast<std::size_t>(std::countr_zero(difference)) / 8;
  }
  while (i < length && a[i] == b[i]) ++i;
  return i;
}

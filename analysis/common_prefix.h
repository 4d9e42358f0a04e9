/// Where two byte strings begin to differ.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// The number of leading bytes that two strings of one length have in common.
[[nodiscard]] inline std::size_t commonPrefix(const std::uint8_t* a, const std::uint8_t* b,
                                              std::size_t length) noexcept {
  std::size_t i = 0;
  for (; i + 8 <= length; i += 8) {
    std::uint64_t wordA;
    std::uint64_t wordB;
    std::memcpy(&wordA, a + i, sizeof wordA);
    std::memcpy(&wordB, b + i, sizeof wordB);
    if (wordA != wordB) return i + static_cast<std::size_t>(std::countr_zero(wordA ^ wordB)) / 8;
  }
  while (i < length && a[i] == b[i]) ++i;
  return i;
}

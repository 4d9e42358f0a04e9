/// Tables for dropping bytes: for every choice among eight of them, how the others move together.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace wide {

/// For every choice among eight bytes, a bit each: the shuffle control that moves them to the front.
inline constexpr std::array<std::uint64_t, 256> kMoveTogether = [] {
  std::array<std::uint64_t, 256> controls{};
  for (unsigned kept = 0; kept < 256; ++kept) {
    std::uint64_t control = 0x8080'8080'8080'8080;
    unsigned position = 0;
    for (unsigned from = 0; from < 8; ++from) {
      if ((kept >> from & 1U) == 0) continue;
      control ^= std::uint64_t{0x80U ^ from} << (8 * position);
      ++position;
    }
    controls[kept] = control;
  }
  return controls;
}();

/// How many bytes each choice keeps, for CPUs that don't count bits in plain registers.
inline constexpr std::array<std::uint8_t, 256> kBitCounts = [] {
  std::array<std::uint8_t, 256> counts{};
  for (unsigned kept = 0; kept < 256; ++kept) counts[kept] = static_cast<std::uint8_t>(std::popcount(kept));
  return counts;
}();

}  // namespace wide

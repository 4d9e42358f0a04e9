/// Eight bytes at a time in a plain register, for the kernels of every platform.
#pragma once

#include <cstdint>
#include <cstring>

namespace byte_word {

inline constexpr std::uint64_t kOnes = 0x0101'0101'0101'0101;
inline constexpr std::uint64_t kHighBits = 0x8080'8080'8080'8080;

[[nodiscard]] inline std::uint64_t load(const std::uint8_t* from) noexcept {
  std::uint64_t word;
  std::memcpy(&word, from, sizeof word);
  return word;
}

inline void store(std::uint8_t* to, std::uint64_t word) noexcept { std::memcpy(to, &word, sizeof word); }

/// True when one of the eight bytes is `byte`.
[[nodiscard]] constexpr bool contains(std::uint64_t word, std::uint8_t byte) noexcept {
  const std::uint64_t zeroWhereEqual = word ^ (kOnes * byte);
  return ((zeroWhereEqual - kOnes) & ~zeroWhereEqual & kHighBits) != 0;
}

static_assert(contains(0x2500'0000'0000'0000, '%') && contains(0x25, '%') && !contains(0x2424'2626'A5A5'0026, '%'));

}  // namespace byte_word

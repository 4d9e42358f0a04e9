/// Eight bytes at a time in a plain register, for the kernels of every platform. The first byte is the lowest.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "memory/wrapping.h"

namespace byte_word {

inline constexpr std::size_t kSize = 8;
inline constexpr std::uint64_t kOnes = 0x0101'0101'0101'0101;
inline constexpr std::uint64_t kHighBits = 0x8080'8080'8080'8080;

[[nodiscard]] inline std::uint64_t load(const std::uint8_t* from) noexcept {
  std::uint64_t word;
  std::memcpy(&word, from, sizeof word);
  return word;
}

inline void store(std::uint8_t* to, std::uint64_t word) noexcept { std::memcpy(to, &word, sizeof word); }

/// True when one of the eight bytes is `byte`.
[[nodiscard]] WRAPPING_FUNCTION constexpr bool contains(std::uint64_t word, std::uint8_t byte) noexcept {
  const std::uint64_t zeroWhereEqual = word ^ (kOnes * byte);
  return ((zeroWhereEqual - kOnes) & ~zeroWhereEqual & kHighBits) != 0;
}

/// 1 in each byte that equals `byte`, 0 in the others.
[[nodiscard]] constexpr std::uint64_t equal(std::uint64_t word, std::uint8_t byte) noexcept {
  const std::uint64_t difference = word ^ (kOnes * byte);
  const std::uint64_t highWhereDifferent = ((difference & ~kHighBits) + ~kHighBits) | difference;
  return (~highWhereDifferent & kHighBits) >> 7;
}

/// The position of the first byte that equals `byte`, or 8 when none does.
[[nodiscard]] constexpr std::size_t find(std::uint64_t word, std::uint8_t byte) noexcept {
  return static_cast<std::size_t>(std::countr_zero(equal(word, byte))) / 8;
}

/// The word with one byte value in place of another.
[[nodiscard]] constexpr std::uint64_t replaced(std::uint64_t word, std::uint8_t from, std::uint8_t to) noexcept {
  return word ^ equal(word, from) * static_cast<std::uint64_t>(from ^ to);
}

static_assert(contains(0x2500'0000'0000'0000, '%') && contains(0x25, '%') && !contains(0x2424'2626'A5A5'0026, '%'));
static_assert(equal(0x2524'2625'A5A5'0025, '%') == 0x0100'0001'0000'0001);
static_assert(find(0x2500'0000'0000'0000, '%') == 7 && find(0xA5A5'2426'0125'2525, '%') == 0 && find(0, '%') == 8);
static_assert(replaced(0x2B2A'2C2B'AB00'0B2B, '+', ' ') == 0x202A'2C20'AB00'0B20);

}  // namespace byte_word

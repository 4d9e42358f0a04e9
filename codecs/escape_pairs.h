/// Escapes of two bytes, found among the bits of a vector: a mark and whatever follows it, another mark or not.
#pragma once

#include <cstdint>

struct EscapePairs {
  std::uint32_t escaping;  ///< each mark that begins a pair
  std::uint32_t escaped;   ///< each byte that ends one, mark or not
};

/// Tells in a row of marks those that escape from those that are escaped, without a loop: subtracting the row from
/// the odd positions turns it over from its first byte on (Langdale and Lemire, Parsing gigabytes of JSON per second).
/// @param marks    the positions of the escape character
/// @param carried  1 when the first byte ends a pair begun before the vector, else 0
[[nodiscard]] constexpr EscapePairs pairedOff(std::uint32_t marks, std::uint32_t carried) noexcept {
  constexpr std::uint32_t kOdd = 0xAAAA'AAAA;
  const std::uint32_t candidates = marks & ~carried;
  const std::uint32_t turned = (((candidates << 1) | kOdd) - candidates) ^ kOdd;
  return {turned & marks, turned ^ (marks | carried)};
}

static_assert(pairedOff(0b0111, 0).escaping == 0b0101 && pairedOff(0b0111, 0).escaped == 0b1010);
static_assert(pairedOff(0b1110, 0).escaping == 0b1010 && pairedOff(0b1110, 0).escaped == 0b10100);
static_assert(pairedOff(0b0011, 1).escaping == 0b0010 && pairedOff(0b0011, 1).escaped == 0b0101);

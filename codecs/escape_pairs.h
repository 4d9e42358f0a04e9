/// Escapes of two bytes, found among the bits of a vector: a mark and whatever follows it, another mark or not.
#pragma once

#include <cstdint>
#include <limits>

#include "memory/wrapping.h"

/// A bit for each byte, the first byte's lowest.
template <typename Bits>
struct EscapePairs {
  Bits escaping;  ///< each mark that begins a pair
  Bits escaped;   ///< each byte that ends one, mark or not
};

/// Tells in a row of marks those that escape from those that are escaped, without a loop: taking the row from the odd
/// positions turns it over from its first byte on (Langdale and Lemire, Parsing gigabytes of JSON per second).
/// @param marks    the positions of the escape character
/// @param carried  1 when the first byte ends a pair begun before the vector, else 0
template <typename Bits>
[[nodiscard]] WRAPPING_FUNCTION constexpr EscapePairs<Bits> pairedOff(Bits marks, Bits carried) noexcept {
  constexpr Bits kOdd = std::numeric_limits<Bits>::max() / 3 * 2;
  const Bits candidates = marks & ~carried;
  const Bits turned = (((candidates << 1) | kOdd) - candidates) ^ kOdd;
  return {turned & marks, turned ^ (marks | carried)};
}

static_assert(pairedOff(0b0111U, 0U).escaping == 0b0101 && pairedOff(0b0111U, 0U).escaped == 0b1010);
static_assert(pairedOff(0b1110U, 0U).escaping == 0b1010 && pairedOff(0b1110U, 0U).escaped == 0b10100);
static_assert(pairedOff(0b0011U, 1U).escaping == 0b0010 && pairedOff(0b0011U, 1U).escaped == 0b0101);

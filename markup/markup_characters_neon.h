/// Nibble tables in vector registers.
#pragma once

#include "markup/markup_characters.h"
#include "wide/cpu.h"

#ifdef WIDE_NEON

#include "wide/neon.h"

namespace markup {

[[nodiscard]] NEON_FUNCTION inline uint8x16_t loaded(const NibbleTable& table) noexcept {
  return wide::load(table.entries);
}

/// Marks the bytes that the table holds. Those with the top bit set look up a zero.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t foundIn(uint8x16_t table, uint8x16_t bytes) noexcept {
  return vceqq_u8(wide::lookedUp(table, vandq_u8(bytes, wide::all(0x8F))), bytes);
}

}  // namespace markup

#endif  // WIDE_NEON

/// Steps that NEON kernels share. What differs between the 64-bit and the 32-bit instructions stays in here.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_NEON

#include <arm_neon.h>
#include <cstddef>
#include <cstdint>

#include "wide/move_together.h"

namespace wide {

/// Bytes in one register.
inline constexpr std::size_t kVector = 16;

/// Two registers, for kernels that reckon with a bit for each byte: 32 of them make a word.
struct Block {
  uint8x16_t low;
  uint8x16_t high;
};

/// Bytes in a block.
inline constexpr std::size_t kBlock = 2 * kVector;

[[nodiscard]] NEON_FUNCTION inline uint8x16_t load(const std::uint8_t* bytes) noexcept { return vld1q_u8(bytes); }

[[nodiscard]] NEON_FUNCTION inline Block loadBlock(const std::uint8_t* bytes) noexcept {
  return {vld1q_u8(bytes), vld1q_u8(bytes + kVector)};
}

NEON_FUNCTION inline void store(std::uint8_t* bytes, uint8x16_t vector) noexcept { vst1q_u8(bytes, vector); }

NEON_FUNCTION inline void store(std::uint8_t* bytes, Block block) noexcept {
  vst1q_u8(bytes, block.low);
  vst1q_u8(bytes + kVector, block.high);
}

[[nodiscard]] NEON_FUNCTION inline uint8x16_t all(std::uint8_t byte) noexcept { return vdupq_n_u8(byte); }

/// The table's entry for each index; 0 for indices of 16 and more.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t lookedUp(uint8x16_t table, uint8x16_t indices) noexcept {
#ifdef __aarch64__
  return vqtbl1q_u8(table, indices);
#else
  // Both halves of a register make a table as they are, but the compiler would copy them first.
  uint8x16_t entries;
  __asm__("vtbl.8 %e0, {%e1, %f1}, %e2\n\tvtbl.8 %f0, {%e1, %f1}, %f2" : "=&w"(entries) : "w"(table), "w"(indices));
  return entries;
#endif
}

/// The entry of a table of 32 bytes for each index; where an index is 32 or more, the byte of `others`.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t lookedUp(Block table, uint8x16_t indices, uint8x16_t others) noexcept {
#ifdef __aarch64__
  return vqtbx2q_u8(others, uint8x16x2_t{{table.low, table.high}}, indices);
#else
  const uint8x8x4_t quarters{
      {vget_low_u8(table.low), vget_high_u8(table.low), vget_low_u8(table.high), vget_high_u8(table.high)}};
  return vcombine_u8(vtbx4_u8(vget_low_u8(others), quarters, vget_low_u8(indices)),
                     vtbx4_u8(vget_high_u8(others), quarters, vget_high_u8(indices)));
#endif
}

/// True when one of the bytes isn't 0.
[[nodiscard]] NEON_FUNCTION inline bool any(uint8x16_t bytes) noexcept {
  const uint32x2_t folded = vreinterpret_u32_u8(vorr_u8(vget_low_u8(bytes), vget_high_u8(bytes)));
  return vget_lane_u32(vpmax_u32(folded, folded), 0) != 0;
}

/// The bytes added up.
[[nodiscard]] NEON_FUNCTION inline std::uint32_t sumOf(uint8x16_t bytes) noexcept {
  const uint32x4_t fours = vpaddlq_u16(vpaddlq_u8(bytes));
  const uint32x2_t halves = vadd_u32(vget_low_u32(fours), vget_high_u32(fours));
  return vget_lane_u32(vpadd_u32(halves, halves), 0);
}

/// The value of each byte's bit among those of its eight.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t bitOfEach() noexcept {
  return vreinterpretq_u8_u64(vdupq_n_u64(0x8040'2010'0804'0201));
}

/// One bit for each byte of a mask, the first byte's lowest. A mask's bytes are 0 or 0xFF.
[[nodiscard]] NEON_FUNCTION inline std::uint32_t bits(uint8x16_t mask) noexcept {
  const uint8x16_t values = vandq_u8(mask, bitOfEach());
  uint8x8_t sums = vpadd_u8(vget_low_u8(values), vget_high_u8(values));
  sums = vpadd_u8(sums, sums);
  sums = vpadd_u8(sums, sums);
  return vget_lane_u16(vreinterpret_u16_u8(sums), 0);
}

[[nodiscard]] NEON_FUNCTION inline std::uint32_t bits(Block mask) noexcept {
  const uint8x16_t low = vandq_u8(mask.low, bitOfEach());
  const uint8x16_t high = vandq_u8(mask.high, bitOfEach());
  uint8x8_t sums =
      vpadd_u8(vpadd_u8(vget_low_u8(low), vget_high_u8(low)), vpadd_u8(vget_low_u8(high), vget_high_u8(high)));
  sums = vpadd_u8(sums, sums);
  return vget_lane_u32(vreinterpret_u32_u8(sums), 0);
}

/// The mask whose bits these are, of which 16 count.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t maskOf(std::uint32_t bits) noexcept {
  const uint8x16_t spread =
      vcombine_u8(vdup_n_u8(static_cast<std::uint8_t>(bits)), vdup_n_u8(static_cast<std::uint8_t>(bits >> 8)));
  return vtstq_u8(spread, bitOfEach());
}

/// One bit for each byte of a block that is the given one.
[[nodiscard]] NEON_FUNCTION inline std::uint32_t placesOf(std::uint8_t byte, Block block) noexcept {
  return bits(Block{vceqq_u8(block.low, all(byte)), vceqq_u8(block.high, all(byte))});
}

/// Writes the bytes whose bit in `keep` is set, and up to 16 bytes from `to` on.
/// @return behind the last byte kept
[[nodiscard]] NEON_FUNCTION inline std::uint8_t* storeKept(std::uint8_t* to, uint8x16_t bytes,
                                                           std::uint32_t keep) noexcept {
  const std::uint32_t low = keep & 0xFF;
  const std::uint32_t high = keep >> 8 & 0xFF;
  vst1_u8(to, vtbl1_u8(vget_low_u8(bytes), vreinterpret_u8_u64(vld1_u64(&kMoveTogether[low]))));
  to += kBitCounts[low];
  vst1_u8(to, vtbl1_u8(vget_high_u8(bytes), vreinterpret_u8_u64(vld1_u64(&kMoveTogether[high]))));
  return to + kBitCounts[high];
}

/// Writes the bytes whose bit in `keep` is set, and up to 32 bytes from `to` on.
/// @return behind the last byte kept
[[nodiscard]] NEON_FUNCTION inline std::uint8_t* storeKept(std::uint8_t* to, Block block, std::uint32_t keep) noexcept {
  return storeKept(storeKept(to, block.low, keep), block.high, keep >> kVector);
}

/// The numbers of the bytes.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t places() noexcept {
  return vcombine_u8(vcreate_u8(0x0706'0504'0302'0100), vcreate_u8(0x0F0E'0D0C'0B0A'0908));
}

/// The bytes from number `first` on in front, with zeros behind them.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t movedToFront(uint8x16_t bytes, std::size_t first) noexcept {
  return lookedUp(bytes, vaddq_u8(places(), all(static_cast<std::uint8_t>(first))));
}

}  // namespace wide

#endif  // WIDE_NEON

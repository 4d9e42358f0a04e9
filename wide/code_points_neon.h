/// Code points narrowed to bytes, for NEON kernels that look for ASCII characters.
#pragma once

#include "wide/cpu.h"

#ifdef WIDE_NEON

#include "wide/neon.h"

namespace wide {

/// Four code points as 16-bit units, the nearest ones. Units of 2^31 and more are read as negative numbers.
[[nodiscard]] NEON_FUNCTION inline int16x4_t nearest16Bits(const char32_t* text) noexcept {
  return vqmovn_s32(vreinterpretq_s32_u32(vld1q_u32(reinterpret_cast<const std::uint32_t*>(text))));
}

[[nodiscard]] NEON_FUNCTION inline int16x8_t nearest16Bits8(const char32_t* text) noexcept {
  return vcombine_s16(nearest16Bits(text), nearest16Bits(text + 4));
}

/// 16 code points as bytes: 0x80 to 0xFF for those beyond ASCII, but 0x00 for 2^31 and more.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t nearestBytes(const char32_t* text) noexcept {
  return vcombine_u8(vqmovun_s16(nearest16Bits8(text)), vqmovun_s16(nearest16Bits8(text + 8)));
}

/// 16 code points as bytes: 0x7F for those beyond ASCII, but 0x80 for 2^31 and more.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t nearestSignedBytes(const char32_t* text) noexcept {
  return vreinterpretq_u8_s8(vcombine_s8(vqmovn_s16(nearest16Bits8(text)), vqmovn_s16(nearest16Bits8(text + 8))));
}

/// Code points that are looked at together.
inline constexpr std::size_t kCodePoints = 16;

/// Copies four code points.
NEON_FUNCTION inline void copyFour(const char32_t* from, std::uint8_t* to) noexcept {
  vst1q_u8(to, vld1q_u8(reinterpret_cast<const std::uint8_t*>(from)));
}

/// The last code points of a text, fewer than 16, with zeros behind them.
struct CodePointTail {
  char32_t block[kCodePoints];

  CodePointTail(const char32_t* text, std::size_t count) noexcept : block{} {
    for (std::size_t i = 0; i < count; ++i) block[i] = text[i];
  }
};

}  // namespace wide

#endif  // WIDE_NEON

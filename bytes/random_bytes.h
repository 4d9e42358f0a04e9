/// Pseudo-random bytes from the C library's generator.
#pragma once

#include "memory/byte_view.h"

namespace random_bytes {

/// The bytes that ASCII output is drawn from: 0x20 to 0x7F.
inline constexpr int kFirstASCII = 0x20;
inline constexpr int kASCIICount = 0x60;

/// Fills a buffer from the first byte to the last with the low 8 bits of one `rand` each, so that a generator seeded
/// alike gives the same bytes.
void fill(ByteSpan bytes) noexcept;

/// As `fill`, with bytes from 0x20 to 0x7F.
void fillWithASCII(ByteSpan bytes) noexcept;

}  // namespace random_bytes

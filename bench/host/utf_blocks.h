/// Encoding of eight UTF-16 units at once as UTF-8, by byte shuffles from a table (Lemire and Muła, "Transcoding
/// Unicode Characters with AVX-512 Instructions", and their earlier work for SSE).
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

#ifdef WIDE_AVX2

namespace lean {

/// A block's result takes up to this many bytes, and that many may be written.
inline constexpr std::size_t kBlockRoom = 32;

/// Encodes eight units. Null, with nothing written that counts, where a surrogate is among them.
std::uint8_t* encodeEight(const char16_t* units, std::uint8_t* out) noexcept;

/// The same for eight code points; null also where one is above U+FFFF.
std::uint8_t* encodeEight(const char32_t* codePoints, std::uint8_t* out) noexcept;

}  // namespace lean

#endif

/// Encoding of runs of units as UTF-8, eight or more at once, by byte shuffles from a table (Lemire and Muła,
/// "Transcoding Unicode Characters with AVX-512 Instructions", and their earlier work for SSE).
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

#ifdef WIDE_AVX2

namespace lean {

/// How far a run has come.
template <typename Unit>
struct Run {
  const Unit* in;
  std::uint8_t* out;
};

/// Encodes from `in` on, as long as `kBlockRoom` units are left and none of the next ones is a surrogate or above
/// U+FFFF. Up to that many bytes are written behind the end of what counts.
inline constexpr std::ptrdiff_t kBlockRoom = 32;
Run<char16_t> encodeRun(const char16_t* in, const char16_t* end, std::uint8_t* out) noexcept;
Run<char32_t> encodeRun(const char32_t* in, const char32_t* end, std::uint8_t* out) noexcept;

}  // namespace lean

#endif

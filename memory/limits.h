/// Limits of all buffers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

/// The largest size of any buffer or string: sizes are positive 32-bit signed numbers.
inline constexpr std::int64_t kMaxSize = std::numeric_limits<std::int32_t>::max();

/// Buffers suit any unit type. `std::max_align_t` would too, but on 32-bit Windows its alignment depends on which
/// header came first.
inline constexpr std::size_t kBufferAlignment = 16;

/// The size with room behind it for stores of whole vectors, as far as the limit leaves any.
[[nodiscard]] constexpr std::int64_t withOverrun(std::int64_t size) noexcept {
  constexpr std::int64_t kOverrun = 64;
  return std::max(size, std::min(size + kOverrun, kMaxSize));
}

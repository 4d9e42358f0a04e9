/// Limits of all buffers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

/// The largest size of any buffer or string: sizes are positive 32-bit signed numbers.
inline constexpr std::int64_t kMaxSize = std::numeric_limits<std::int32_t>::max();

/// Buffers suit any unit type. `std::max_align_t` would too, but on 32-bit Windows its alignment depends on which
/// header came first.
inline constexpr std::size_t kBufferAlignment = 16;

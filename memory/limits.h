/// The largest size of any buffer or string: sizes are positive 32-bit signed numbers.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

inline constexpr std::int64_t kMaxSize = std::numeric_limits<std::int32_t>::max();

/// The size with room behind it for stores of whole vectors, as far as the limit leaves any.
[[nodiscard]] constexpr std::int64_t withOverrun(std::int64_t size) noexcept {
  constexpr std::int64_t kOverrun = 64;
  return std::max(size, std::min(size + kOverrun, kMaxSize));
}

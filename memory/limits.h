/// The largest size of any buffer or string: sizes are positive 32-bit signed numbers.
#pragma once

#include <cstdint>
#include <limits>

inline constexpr std::int64_t kMaxSize = std::numeric_limits<std::int32_t>::max();

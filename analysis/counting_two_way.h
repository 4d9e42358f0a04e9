/// The Two-Way string matching algorithm, for texts on which filters fail.
#pragma once

#include <cstdint>

#include "memory/byte_view.h"

namespace counting {

/// Counts as `counting::count`, with at most a small multiple of the two lengths in comparisons and without memory
/// (M. Crochemore, D. Perrin: Two-Way String-Matching, Journal of the ACM 38, 1991).
/// @param pattern  of two bytes or more
[[nodiscard]] std::int64_t countTwoWay(ByteView text, ByteView pattern) noexcept;

}  // namespace counting

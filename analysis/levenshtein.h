/// Edit distance of texts in which adjacent characters can also be swapped.
#pragma once

#include <cstdint>
#include <span>

#include "memory/byte_view.h"

namespace levenshtein {

/// The size of a matrix of 32-bit cells with a border, which is what the limit on the lengths is stated in.
[[nodiscard]] constexpr std::int64_t matrixSize(Utf32View a, Utf32View b) noexcept {
  return (static_cast<std::int64_t>(a.size()) + 1) * (static_cast<std::int64_t>(b.size()) + 1) * 4;
}

inline constexpr std::int64_t kNoMemory = -1;

/// The optimal string alignment distance: the least number of insertions, deletions, substitutions and swaps of two
/// adjacent code points that turn one text into the other, no part being edited twice. Needs memory in proportion to
/// the sum of the lengths, and none where one text has at most 64 code points.
/// @return `kNoMemory` where that memory can't be had
/// @pre `matrixSize` is at most 2^31 - 1
[[nodiscard]] std::int64_t distance(Utf32View a, Utf32View b) noexcept;

namespace scalar {
/// The same without wide registers.
[[nodiscard]] std::int64_t distance(Utf32View a, Utf32View b) noexcept;
}  // namespace scalar

/// The distance in proportion to the length of the shorter text; 0.0 for equal texts.
/// @pre neither text is empty
[[nodiscard]] double relativeDistance(std::int64_t distance, Utf32View a, Utf32View b) noexcept;

}  // namespace levenshtein

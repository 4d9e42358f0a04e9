/// The matrix of edit distances between long texts, computed in bands of rows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "wide/cpu.h"

namespace levenshtein {

/// A character of either text by its number; 0 for those that only the text in the columns has.
using Symbol = std::uint16_t;

/// What crosses from the last row of a band into the next one in one column, each 0 or 1.
struct Carry {
  std::uint32_t notHp;  ///< the distance does not grow from the column before
  std::uint32_t hn;     ///< the distance shrinks
  std::uint32_t tr;     ///< a swap may end in the next row
};

/// Two texts, and memory to work in.
struct Matrix {
  /// What a band's wavefront runs past the last column.
  static constexpr std::size_t kOverrun = 3;
  /// The most words of 64 rows that are computed together.
  static constexpr std::size_t kMaxWords = 8;

  std::span<const Symbol> rows;
  std::span<const Symbol> columns;  ///< followed by `kOverrun` symbols 0
  std::size_t symbolCount;
  Carry* carries;        ///< one for each column, and `kOverrun` more
  std::uint64_t* masks;  ///< `kMaxWords` for each symbol, all 0 before and after
};

/// Computes band after band and returns the distance in the corner.
///
/// The rows that are missing to whole bands are put before the first one. They match nothing, and in them the distance
/// is the number of the column throughout, as in the border they are continuing.
/// @tparam kWords   words of rows in a band
/// @tparam kBands   how many bands are computed together, while there are as many
/// @param sweepBands  (matrix, bands, padding): computes bands and replaces the carries into the first by those out of
///                    the last. The masks hold the rows of the first band, symbol by symbol, then those of the second;
///                    the first `padding` rows are missing
template <std::size_t kWords, std::size_t kBands, typename SweepBands>
[[nodiscard]] std::int64_t sweep(const Matrix& matrix, SweepBands sweepBands) noexcept {
  static_assert(kWords * kBands <= Matrix::kMaxWords);
  constexpr std::size_t kRows = 64 * kWords;
  std::fill_n(&matrix.carries->notHp, (matrix.columns.size() + Matrix::kOverrun) * 3, 0U);
  std::size_t padding = (kRows - matrix.rows.size() % kRows) % kRows;
  std::size_t bandsLeft = (matrix.rows.size() + padding) / kRows;
  std::size_t begin = 0;
  while (bandsLeft != 0) {
    const std::size_t bands = (bandsLeft - 1) % kBands + 1;
    const std::span<const Symbol> rows = matrix.rows.subspan(begin, bands * kRows - padding);
    const auto maskOf = [&](std::size_t i) -> std::uint64_t& {
      const std::size_t row = padding + i;
      return matrix.masks[(row / kRows * matrix.symbolCount + rows[i]) * kWords + row % kRows / 64];
    };
    for (std::size_t i = 0; i < rows.size(); ++i) maskOf(i) |= std::uint64_t{1} << (padding + i) % 64;
    sweepBands(matrix, bands, padding);
    for (std::size_t i = 0; i < rows.size(); ++i) maskOf(i) = 0;
    begin += rows.size();
    bandsLeft -= bands;
    padding = 0;
  }
  std::int64_t distance = std::ssize(matrix.rows);
  for (std::size_t j = 0; j < matrix.columns.size(); ++j) {
    distance += 1 - static_cast<std::int64_t>(matrix.carries[j].notHp + matrix.carries[j].hn);
  }
  return distance;
}

namespace scalar {
/// The distance in the corner of the matrix, in bands of 64 rows.
[[nodiscard]] std::int64_t corner(const Matrix& matrix) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
/// The twin of `scalar::corner` for CPUs with AVX2, in bands of 256 rows.
[[nodiscard]] std::int64_t corner(const Matrix& matrix) noexcept;
}  // namespace avx2
#endif

}  // namespace levenshtein

/// Edit distance in bit vectors: the plain forms, and the choice between the forms.
#include "analysis/levenshtein.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "analysis/code_point_map.h"
#include "analysis/levenshtein_bands.h"
#include "memory/work_buffer.h"
#include "memory/wrapping.h"

// Bit vectors stand for the differences between neighbouring cells in a column of the matrix of distances, a row each
// (H. Hyyrö: A Bit-Vector Algorithm for Computing Levenshtein and Damerau Edit Distances, Nordic Journal of Computing
// 10, 2003). The names are the paper's: PM marks the rows whose character is the column's, D0 those whose distance is
// that of their upper left neighbour, HP and HN those where it is one more or less than that of the left neighbour, VP
// and VN of the upper one, TR those where a swap ends.

namespace levenshtein {
namespace {

constexpr std::size_t kWordRows = 64;

/// The distance when one text fits a word.
/// @param rows  of 1 to 64 code points
WRAPPING_FUNCTION std::int64_t distanceInWord(Utf32View rows, Utf32View columns) noexcept {
  CodePointMap<std::uint64_t> masks(rows, columns);
  for (std::size_t i = 0; i < rows.size(); ++i) *masks.entry(rows[i]) |= std::uint64_t{1} << i;
  const std::size_t lastRow = rows.size() - 1;
  std::uint64_t VP = ~std::uint64_t{0};
  std::uint64_t VN = 0;
  std::uint64_t D0 = 0;
  std::uint64_t PMbefore = 0;
  std::int64_t distance = std::ssize(rows);
  for (const char32_t codePoint : columns) {
    const std::uint64_t PM = masks[codePoint];
    const std::uint64_t TR = ((~D0 & PM) << 1) & PMbefore;
    const std::uint64_t unchained = PM | VN | TR;
    const std::uint64_t sum = (PM & VP) + VP;
    D0 = (sum ^ VP) | unchained;
    const std::uint64_t notHP = (sum | VP | unchained) & ~VN;
    const std::uint64_t HN = D0 & VP;
    distance += 1 - static_cast<std::int64_t>(notHP >> lastRow & 1) - static_cast<std::int64_t>(HN >> lastRow & 1);
    VP = (HN << 1) | (~D0 & (notHP << 1));
    VN = D0 & ~(notHP << 1);
    PMbefore = PM;
  }
  return distance;
}

WRAPPING_FUNCTION void sweepBand(const Matrix& matrix, std::size_t /*bands*/, std::size_t padding) noexcept {
  std::uint64_t VP = ~std::uint64_t{0} << padding;
  std::uint64_t VN = 0;
  std::uint64_t D0 = 0;
  std::uint64_t PMbefore = 0;
  for (std::size_t j = 0; j < matrix.columns.size(); ++j) {
    const Carry in = matrix.carries[j];
    const std::uint64_t PM = matrix.masks[matrix.columns[j]];
    const std::uint64_t swappable = ~D0 & PM;
    const std::uint64_t TR = ((swappable << 1) | in.tr) & PMbefore;
    const std::uint64_t X = PM | in.hn;
    const std::uint64_t unchained = X | VN | TR;
    const std::uint64_t sum = (X & VP) + VP;
    D0 = (sum ^ VP) | unchained;
    const std::uint64_t notHP = (sum | VP | unchained) & ~VN;
    const std::uint64_t HN = D0 & VP;
    matrix.carries[j] = {static_cast<std::uint32_t>(notHP >> 63), static_cast<std::uint32_t>(HN >> 63),
                         static_cast<std::uint32_t>(swappable >> 63)};
    const std::uint64_t notHPbelow = (notHP << 1) | in.notHp;
    VP = (HN << 1) | in.hn | (~D0 & notHPbelow);
    VN = D0 & ~notHPbelow;
    PMbefore = PM;
  }
}

using Corner = std::int64_t (*)(const Matrix& matrix) noexcept;

std::int64_t corner(const Matrix& matrix) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::corner(matrix);
#endif
  return scalar::corner(matrix);
}

/// The distance when both texts are longer than a word.
std::int64_t distanceInBands(Utf32View rows, Utf32View columns, Corner corner) noexcept {
  const std::size_t columnRoom = columns.size() + Matrix::kOverrun;
  const std::size_t symbolRoom = rows.size() + columnRoom;
  const WorkBuffer symbolBuffer(static_cast<std::int64_t>(symbolRoom * sizeof(Symbol)));
  const WorkBuffer carryBuffer(static_cast<std::int64_t>(columnRoom * sizeof(Carry)));
  if (!symbolBuffer || !carryBuffer) return kNoMemory;

  CodePointMap<std::uint32_t> numbers(rows, columns);
  std::uint32_t symbolCount = 1;
  const std::span<Symbol> symbols = symbolBuffer.units<Symbol>();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::uint32_t* const number = numbers.entry(rows[i]);
    if (number == nullptr) return kNoMemory;
    if (*number == 0) *number = symbolCount++;
    symbols[i] = static_cast<Symbol>(*number);
  }
  for (std::size_t j = 0; j < columns.size(); ++j) symbols[rows.size() + j] = static_cast<Symbol>(numbers[columns[j]]);
  std::fill(symbols.end() - Matrix::kOverrun, symbols.end(), Symbol{0});

  const WorkBuffer maskBuffer(static_cast<std::int64_t>(symbolCount * Matrix::kMaxWords * sizeof(std::uint64_t)));
  if (!maskBuffer) return kNoMemory;
  const std::span<std::uint64_t> masks = maskBuffer.units<std::uint64_t>();
  std::fill(masks.begin(), masks.end(), 0);
  return corner({symbols.first(rows.size()), symbols.subspan(rows.size(), columns.size()), symbolCount,
                 carryBuffer.units<Carry>().data(), masks.data()});
}

/// Takes off what both texts begin and end with: where the last code points are equal, the distance is that of the
/// texts without them, and it is the same for reversed texts.
void stripCommonEnds(Utf32View& a, Utf32View& b) noexcept {
  const auto [endOfPrefix, unused] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  const auto prefix = static_cast<std::size_t>(endOfPrefix - a.begin());
  a = a.subspan(prefix);
  b = b.subspan(prefix);
  while (!a.empty() && !b.empty() && a.back() == b.back()) {
    a = a.first(a.size() - 1);
    b = b.first(b.size() - 1);
  }
}

std::int64_t distanceBy(Corner corner, Utf32View a, Utf32View b) noexcept {
  stripCommonEnds(a, b);
  if (a.size() > b.size()) std::swap(a, b);
  if (a.empty()) return std::ssize(b);
  return a.size() <= kWordRows ? distanceInWord(a, b) : distanceInBands(a, b, corner);
}

}  // namespace

std::int64_t scalar::corner(const Matrix& matrix) noexcept { return sweep<1, 1>(matrix, sweepBand); }

std::int64_t scalar::distance(Utf32View a, Utf32View b) noexcept { return distanceBy(scalar::corner, a, b); }

std::int64_t distance(Utf32View a, Utf32View b) noexcept { return distanceBy(corner, a, b); }

double relativeDistance(std::int64_t distance, Utf32View a, Utf32View b) noexcept {
  return 1.0 / (static_cast<double>(std::min(a.size(), b.size())) / static_cast<double>(distance));
}

}  // namespace levenshtein

#include "bench/run/statistics.h"

#include <algorithm>
#include <cmath>

namespace {

/// The value at a share of the sorted range, between two neighbours where it falls between them.
double quantile(const std::vector<double>& sorted, double share) {
  const double position = share * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(position);
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  return std::lerp(sorted[below], sorted[above], position - std::floor(position));
}

}  // namespace

Spread spreadOf(std::vector<double> values) {
  std::ranges::sort(values);
  const double median = quantile(values, 0.5);
  return {median, values.front(), (quantile(values, 0.75) - quantile(values, 0.25)) / 2 / median};
}

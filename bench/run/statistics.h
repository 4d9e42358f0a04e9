/// The middle of a few measurements, and how far they lie apart.
#pragma once

#include <vector>

struct Spread {
  double median;
  double least;
  double relative;  ///< half the range between the quartiles, as a share of the median
};

/// @param values  at least one
[[nodiscard]] Spread spreadOf(std::vector<double> values);

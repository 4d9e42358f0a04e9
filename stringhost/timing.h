/// How long calls took, and how much that varied.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace stringhost {

/// Takes one time after the other and keeps none of them: mean and spread by Welford, "Note on a method for
/// calculating corrected sums of squares and products" (1962).
class Timing {
 public:
  void add(double nanoseconds) noexcept {
    ++count_;
    const double distance = nanoseconds - mean_;
    mean_ += distance / static_cast<double>(count_);
    squares_ += distance * (nanoseconds - mean_);
    least_ = std::min(least_, nanoseconds);
    most_ = std::max(most_, nanoseconds);
  }

  [[nodiscard]] std::int64_t count() const noexcept { return count_; }
  [[nodiscard]] double mean() const noexcept { return mean_; }
  [[nodiscard]] double least() const noexcept { return least_; }
  [[nodiscard]] double most() const noexcept { return most_; }

  /// The standard deviation of a sample; 0 for fewer than two times.
  [[nodiscard]] double deviation() const noexcept {
    return count_ < 2 ? 0 : std::sqrt(squares_ / static_cast<double>(count_ - 1));
  }

 private:
  std::int64_t count_ = 0;
  double mean_ = 0;
  double squares_ = 0;
  double least_ = std::numeric_limits<double>::infinity();
  double most_ = 0;
};

}  // namespace stringhost

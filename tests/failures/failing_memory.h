/// Memory that runs out inside the plugin, and nowhere else.
#pragma once

#include <cstdint>

namespace failing_memory {

inline constexpr std::int64_t kNever = -1;

/// Which allocations of the plugin fail while a `Shortage` lives.
struct Plan {
  std::int64_t first = kNever;  ///< the number of the first that fails, from 0
  bool andAllAfter = false;
};

/// Counts the plugin's allocations, and makes the planned ones fail, until it is destroyed. One at a time.
class Shortage {
 public:
  explicit Shortage(Plan plan = {}) noexcept;
  ~Shortage();
  Shortage(const Shortage&) = delete;
  Shortage& operator=(const Shortage&) = delete;

  /// The allocations asked for by the plugin so far, the failed ones included.
  [[nodiscard]] std::int64_t allocations() const noexcept;
};

}  // namespace failing_memory

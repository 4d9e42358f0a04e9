/// A line that tells a waiting person what is going on.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace stringhost {

/// Writes what is being done, and for how long, once it takes longer than a second. Where `inPlace` the line is kept
/// up to date and wiped out in the end, as suits a terminal; elsewhere it is written once. Nobody else may write to
/// `err` meanwhile.
class Progress {
 public:
  /// @param steps  how many `advance` is going to count; 0 where there is nothing to count
  Progress(std::ostream& err, std::string what, bool inPlace, std::int64_t steps = 0,
           std::chrono::milliseconds patience = std::chrono::seconds(1));
  ~Progress();
  Progress(const Progress&) = delete;

  void advance() noexcept { done_.fetch_add(1, std::memory_order_relaxed); }

  /// Whether the line was written.
  [[nodiscard]] bool isShown() const noexcept { return isShown_.load(std::memory_order_acquire); }

 private:
  void watch(std::chrono::milliseconds patience);
  void write(std::int64_t seconds);

  std::ostream& err_;
  std::string what_;
  bool inPlace_;
  std::int64_t steps_;
  std::atomic<std::int64_t> done_{0};
  std::atomic<bool> isShown_{false};
  std::mutex guard_;
  std::condition_variable wake_;
  bool isOver_ = false;
  std::thread thread_;
};

}  // namespace stringhost

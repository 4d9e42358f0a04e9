#include "stringhost/progress.h"

#include <system_error>
#include <utility>

namespace stringhost {

Progress::Progress(std::ostream& err, std::string what, bool inPlace, std::int64_t steps,
                   std::chrono::milliseconds patience)
    : err_(err), what_(std::move(what)), inPlace_(inPlace), steps_(steps) {
  try {
    thread_ = std::thread([this, patience] { watch(patience); });
  } catch (const std::system_error&) {
    // There is no thread to be had, and nothing depends on this one.
  }
}

Progress::~Progress() {
  {
    const std::lock_guard lock(guard_);
    isOver_ = true;
  }
  wake_.notify_one();
  if (thread_.joinable()) thread_.join();
  if (isShown() && inPlace_) err_ << "\r\x1B[K" << std::flush;
}

void Progress::watch(std::chrono::milliseconds patience) {
  const auto start = std::chrono::steady_clock::now();
  std::unique_lock lock(guard_);
  while (!wake_.wait_for(lock, isShown() ? std::chrono::seconds(1) : patience, [this] { return isOver_; })) {
    const auto elapsed = std::chrono::steady_clock::now() - start;
    write(std::chrono::duration_cast<std::chrono::seconds>(elapsed).count());
    isShown_.store(true, std::memory_order_release);
    if (!inPlace_) return;
  }
}

void Progress::write(std::int64_t seconds) {
  if (inPlace_) err_ << "\r\x1B[K";
  err_ << "stringhost: " << what_;
  if (steps_ > 1) err_ << ", " << done_.load(std::memory_order_relaxed) << " of " << steps_;
  err_ << ", " << seconds << " s so far";
  err_ << (inPlace_ ? "" : "\n") << std::flush;
}

}  // namespace stringhost

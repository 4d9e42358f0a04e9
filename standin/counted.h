/// What every thing of the host has in common: a count of references, and what is left once it reaches zero.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace standin {

/// A string, an object or a filled record. It begins with one reference, its maker's.
class Counted {
 public:
  enum class Kind : std::uint8_t { kString, kObject, kRecord };

  explicit Counted(Kind kind) noexcept : kind_(kind) {}
  virtual ~Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  [[nodiscard]] std::int32_t references() const noexcept { return references_.load(std::memory_order_relaxed); }
  [[nodiscard]] bool isAlive() const noexcept { return references() > 0; }

  void retain() noexcept { references_.fetch_add(1, std::memory_order_relaxed); }

  /// Drops a reference. True if it was the last: the caller then has to bury what is left.
  [[nodiscard]] bool drop() noexcept { return references_.fetch_sub(1, std::memory_order_acq_rel) == 1; }

  /// A tracked thing is known to an account, which deletes its shell at the end.
  [[nodiscard]] bool isTracked() const noexcept { return tracked_; }
  void track() noexcept { tracked_ = true; }

  /// Gives up the contents and whatever else is held; only the shell stays, for the accounts to tell a second
  /// release from a first.
  virtual void dissolve() noexcept = 0;

  /// Names the thing in a report.
  [[nodiscard]] virtual std::string description() const = 0;

 private:
  std::atomic<std::int32_t> references_{1};
  Kind kind_;
  bool tracked_ = false;
};

}  // namespace standin

/// Memory between pages that cannot be touched: the part of the stand-in host that depends on the platform.
#pragma once

#include <cstddef>
#include <cstdint>

namespace standin {

/// Bytes that end exactly where an untouchable page begins. Where the platform has no such pages they are
/// ordinary memory.
class GuardedMemory {
 public:
  /// Throws `std::bad_alloc` where there is no memory.
  explicit GuardedMemory(std::size_t size);
  ~GuardedMemory();
  GuardedMemory(const GuardedMemory&) = delete;
  GuardedMemory& operator=(const GuardedMemory&) = delete;

  [[nodiscard]] std::uint8_t* data() const noexcept { return data_; }

  /// Lets no one write any more.
  void seal() noexcept;

 private:
  void* region_;           ///< guard, contents, guard
  std::size_t guardSize_;  ///< bytes of one guard
  std::size_t innerSize_;  ///< bytes between the guards
  std::uint8_t* data_;
};

}  // namespace standin

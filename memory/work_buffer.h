/// Scratch memory of a size that is known beforehand.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "memory/byte_view.h"
#include "memory/limits.h"

/// A buffer for one call. Small ones lie in the object itself, larger ones on the heap.
/// The contents are uninitialised: whoever asks for a buffer writes all of it.
class WorkBuffer {
 public:
  /// Sizes up to this many bytes need no allocation.
  static constexpr std::int64_t kInlineSize = 1024;

  /// Provides `byteCount` bytes, aligned for any unit type.
  /// There is no buffer (`operator bool`) when the count is below 1 or above 2^31 - 1, or memory is short.
  /// @param describedSize  the size that limits bind on, where it is larger than the one needed
  explicit WorkBuffer(std::int64_t byteCount, std::int64_t describedSize = 0) noexcept
      : data_(nullptr), size_(byteCount) {
    if (byteCount < 1 || std::max(byteCount, describedSize) > kMaxSize) return;
    data_ = byteCount <= kInlineSize ? inline_ : allocate(byteCount);
  }

  ~WorkBuffer() {
    if (data_ != inline_) release(data_);
  }

  WorkBuffer(const WorkBuffer&) = delete;
  WorkBuffer& operator=(const WorkBuffer&) = delete;

  explicit operator bool() const noexcept { return data_ != nullptr; }

  [[nodiscard]] std::uint8_t* data() const noexcept { return data_; }
  [[nodiscard]] std::int64_t size() const noexcept { return data_ != nullptr ? size_ : 0; }
  [[nodiscard]] ByteSpan bytes() const noexcept { return {data_, static_cast<std::size_t>(size())}; }

  /// The buffer as whole units of another type.
  template <typename Unit>
  [[nodiscard]] std::span<Unit> units() const noexcept {
    return {reinterpret_cast<Unit*>(data_), static_cast<std::size_t>(size()) / sizeof(Unit)};
  }

 private:
  [[nodiscard]] static std::uint8_t* allocate(std::int64_t byteCount) noexcept;
  static void release(std::uint8_t* data) noexcept;

  std::uint8_t* data_;
  std::int64_t size_;
  alignas(kBufferAlignment) std::uint8_t inline_[kInlineSize];
};

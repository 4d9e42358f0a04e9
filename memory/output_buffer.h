/// Output whose size is not known beforehand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "memory/byte_view.h"
#include "memory/limits.h"

/// Bytes that grow as a kernel writes them. Short outputs lie in the object itself, longer ones on the heap;
/// growth is amortised.
///
/// A writer keeps its own cursor and asks for room ahead of each step:
///
///     std::uint8_t* out = output.begin();
///     for (...) {
///       if (!output.makeRoom(out, 8)) return false;
///       *out++ = ...;  // at most 8 bytes
///     }
///     return output.finish(out);
class OutputBuffer {
 public:
  /// Outputs up to this many bytes need no allocation.
  static constexpr std::int64_t kInlineSize = 1024;

  /// A step may ask for this many bytes more than it ends up using without hitting the limit too early.
  static constexpr std::int64_t kSlack = 4096;

  OutputBuffer() noexcept : begin_(inline_), limit_(inline_ + kInlineSize), size_(0), tooLong_(false) {}
  ~OutputBuffer();
  OutputBuffer(const OutputBuffer&) = delete;
  OutputBuffer& operator=(const OutputBuffer&) = delete;

  /// Where the first byte goes. Later positions come from the writer's cursor.
  [[nodiscard]] std::uint8_t* begin() noexcept { return begin_; }

  /// Bytes that can still be written from `cursor` on before room has to be made.
  [[nodiscard]] std::int64_t room(const std::uint8_t* cursor) const noexcept { return limit_ - cursor; }

  /// Makes sure that `byteCount` more bytes fit from `cursor` on; moves the cursor along when the bytes before
  /// it move. False, with the cursor untouched, when the output would exceed 2^31 - 1 bytes by more than the
  /// slack (`tooLong`) or memory is short.
  [[nodiscard]] bool makeRoom(std::uint8_t*& cursor, std::int64_t byteCount) noexcept {
    return byteCount <= room(cursor) || grow(cursor, byteCount);
  }

  /// Ends the writing: everything before the cursor is the output. False when that exceeds 2^31 - 1 bytes.
  [[nodiscard]] bool finish(const std::uint8_t* cursor) noexcept {
    size_ = cursor - begin_;
    tooLong_ = size_ > kMaxSize;
    return !tooLong_;
  }

  /// Says that the output would be too long, where a writer knows that beforehand. Always false.
  [[nodiscard]] bool refuse() noexcept {
    tooLong_ = true;
    return false;
  }

  /// After a failure: true when the output would have become longer than a string can be, false when memory
  /// was short.
  [[nodiscard]] bool tooLong() const noexcept { return tooLong_; }

  /// The finished output; valid as long as the buffer is.
  [[nodiscard]] ByteView bytes() const noexcept { return {begin_, static_cast<std::size_t>(size_)}; }
  [[nodiscard]] const std::uint8_t* data() const noexcept { return begin_; }
  [[nodiscard]] std::int64_t size() const noexcept { return size_; }

 private:
  [[nodiscard]] bool grow(std::uint8_t*& cursor, std::int64_t byteCount) noexcept;

  std::uint8_t* begin_;
  std::uint8_t* limit_;
  std::int64_t size_;
  bool tooLong_;
  alignas(kBufferAlignment) std::uint8_t inline_[kInlineSize];
};

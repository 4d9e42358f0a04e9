#include "memory/output_buffer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

OutputBuffer::~OutputBuffer() {
  if (begin_ != inline_) std::free(begin_);
}

bool OutputBuffer::grow(std::uint8_t*& cursor, std::int64_t byteCount) noexcept {
  const std::int64_t used = cursor - begin_;
  constexpr std::int64_t kMaxCapacity = kMaxSize + kSlack;
  if (byteCount > kMaxCapacity - used) {
    tooLong_ = true;
    return false;
  }
  const std::int64_t needed = used + byteCount;
  const std::int64_t capacity = limit_ - begin_;
  const auto grown = static_cast<std::size_t>(std::min(std::max(needed, 2 * capacity), kMaxCapacity));
  std::uint8_t* const moved =
      static_cast<std::uint8_t*>(begin_ == inline_ ? std::malloc(grown) : std::realloc(begin_, grown));
  if (moved == nullptr) return false;
  if (begin_ == inline_) std::memcpy(moved, inline_, static_cast<std::size_t>(used));
  begin_ = moved;
  limit_ = moved + grown;
  cursor = moved + used;
  return true;
}

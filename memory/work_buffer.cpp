#include "memory/work_buffer.h"

#include <algorithm>
#include <cstdlib>

#include "memory/limits.h"

WorkBuffer::WorkBuffer(std::int64_t byteCount, std::int64_t describedSize) noexcept : data_(nullptr), size_(byteCount) {
  if (byteCount < 1 || std::max(byteCount, describedSize) > kMaxSize) return;
  data_ =
      byteCount <= kInlineSize ? inline_ : static_cast<std::uint8_t*>(std::malloc(static_cast<std::size_t>(byteCount)));
}

WorkBuffer::~WorkBuffer() {
  if (data_ != inline_) std::free(data_);
}

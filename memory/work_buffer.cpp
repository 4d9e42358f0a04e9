#include "memory/work_buffer.h"

#include <cstdlib>

std::uint8_t* WorkBuffer::allocate(std::int64_t byteCount) noexcept {
  return static_cast<std::uint8_t*>(std::malloc(static_cast<std::size_t>(byteCount)));
}

void WorkBuffer::release(std::uint8_t* data) noexcept { std::free(data); }

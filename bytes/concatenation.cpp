#include "bytes/concatenation.h"

#include <cstring>

std::int64_t concatenation::joinedSize(std::span<const ByteView> parts) noexcept {
  std::int64_t size = 0;
  for (const ByteView part : parts) size += std::ssize(part);
  return size;
}

void concatenation::join(std::span<const ByteView> parts, ByteSpan joined) noexcept {
  std::uint8_t* out = joined.data();
  for (const ByteView part : parts) {
    if (part.empty()) continue;
    std::memcpy(out, part.data(), part.size());
    out += part.size();
  }
}

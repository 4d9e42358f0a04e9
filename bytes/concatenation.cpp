#include "bytes/concatenation.h"

#include <cstring>

#include "wide/byte_word.h"

namespace {

/// Copies a part; one of 8 to 16 bytes in two words that may overlap, without a call.
void copyPart(ByteView part, std::uint8_t* out) noexcept {
  using namespace byte_word;
  const std::size_t size = part.size();
  if (size < kSize || size > 2 * kSize) {
    std::memcpy(out, part.data(), size);
    return;
  }
  const std::uint64_t last = load(part.data() + size - kSize);
  store(out, load(part.data()));
  store(out + size - kSize, last);
}

}  // namespace

std::int64_t concatenation::joinedSize(std::span<const ByteView> parts) noexcept {
  std::int64_t size = 0;
  for (const ByteView part : parts) size += std::ssize(part);
  return size;
}

void concatenation::join(std::span<const ByteView> parts, ByteSpan joined) noexcept {
  std::uint8_t* out = joined.data();
  for (const ByteView part : parts) {
    if (part.empty()) continue;
    copyPart(part, out);
    out += part.size();
  }
}

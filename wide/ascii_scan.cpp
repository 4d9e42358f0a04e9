#include "wide/ascii_scan.h"

#include <cstring>

namespace {

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 32;

constexpr std::uint64_t kHighBits = 0x8080'8080'8080'8080;

}  // namespace

std::size_t ascii::findNonAscii(ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= kWideFrom && cpu::hasAvx2()) return avx2::findNonAscii(bytes);
#endif
  return scalar::findNonAscii(bytes);
}

std::size_t ascii::scalar::findNonAscii(ByteView bytes) noexcept {
  std::size_t i = 0;
  for (std::uint64_t word = 0; bytes.size() - i >= sizeof word; i += sizeof word) {
    std::memcpy(&word, bytes.data() + i, sizeof word);
    if ((word & kHighBits) != 0) break;
  }
  while (i < bytes.size() && bytes[i] < 0x80) ++i;
  return i;
}

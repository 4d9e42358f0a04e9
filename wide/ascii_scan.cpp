#include "wide/ascii_scan.h"

#include "wide/byte_word.h"

namespace {

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 32;

}  // namespace

std::size_t ascii::findNonAscii(ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= kWideFrom && cpu::hasAvx2()) return avx2::findNonAscii(bytes);
#endif
  return scalar::findNonAscii(bytes);
}

std::size_t ascii::scalar::findNonAscii(ByteView bytes) noexcept {
  std::size_t i = 0;
  while (bytes.size() - i >= byte_word::kSize && (byte_word::load(bytes.data() + i) & byte_word::kHighBits) == 0) {
    i += byte_word::kSize;
  }
  while (i < bytes.size() && bytes[i] < 0x80) ++i;
  return i;
}

#include "wide/ascii_scan.h"

#include "wide/byte_word.h"

namespace {

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 32;

bool isAsciiWord(const std::uint8_t* bytes) noexcept { return (byte_word::load(bytes) & byte_word::kHighBits) == 0; }

}  // namespace

std::size_t ascii::findNonAscii(ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= kWideFrom && cpu::hasAvx2()) return avx2::findNonAscii(bytes);
#endif
#ifdef WIDE_NEON
  if (bytes.size() >= kWideFrom && cpu::hasNeon()) return neon::findNonAscii(bytes);
#endif
  return scalar::findNonAscii(bytes);
}

std::size_t ascii::scalar::findNonAscii(ByteView bytes) noexcept {
  using byte_word::kSize;
  std::size_t i = 0;
  while (bytes.size() - i >= kSize && isAsciiWord(bytes.data() + i)) i += kSize;
  const bool atLastWord = bytes.size() >= kSize && bytes.size() - i < kSize;
  if (atLastWord && isAsciiWord(bytes.data() + bytes.size() - kSize)) return bytes.size();
  while (i < bytes.size() && bytes[i] < 0x80) ++i;
  return i;
}

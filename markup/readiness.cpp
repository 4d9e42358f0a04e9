#include "markup/readiness.h"

#include "markup/markup_characters.h"
#include "wide/byte_word.h"

namespace {

[[nodiscard]] bool isReadyByte(std::uint8_t byte) noexcept {
  return byte != 0 && byte < 0x80 && !markup::isMarkupCharacter(byte);
}

[[nodiscard]] bool isReadyWord(std::uint64_t word) noexcept {
  using byte_word::contains;
  using byte_word::kOnes;
  if ((word & byte_word::kHighBits) != 0 || contains(word, 0) || contains(word, '"')) return false;
  // "&" and "'" differ in one bit, "<" and ">" in another.
  return !contains(word & ~(kOnes * 1), '&') && !contains(word & ~(kOnes * 2), '<');
}

}  // namespace

bool readiness::scalar::isReady(ByteView bytes) noexcept {
  for (; bytes.size() >= 8; bytes = bytes.subspan(8)) {
    if (!isReadyWord(byte_word::load(bytes.data()))) return false;
  }
  for (const std::uint8_t byte : bytes) {
    if (!isReadyByte(byte)) return false;
  }
  return true;
}

bool readiness::isReady(ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::isReady(bytes);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::isReady(bytes);
#endif
  return scalar::isReady(bytes);
}

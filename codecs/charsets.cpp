/// The plain form of the single-byte character sets, and the choice between the forms.
#include "codecs/charsets.h"

std::size_t charsets::scalar::encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept {
  std::uint8_t* out = bytes.data();
  for (const char16_t unit : text) {
    const std::uint8_t byte = set.byteOf(unit);
    *out = byte;
    out += static_cast<int>(byte != 0) | static_cast<int>(unit == 0);  // byte 0 stands for U+0000 in every set
  }
  return static_cast<std::size_t>(out - bytes.data());
}

void charsets::scalar::decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept {
  char16_t* out = text.data();
  for (const std::uint8_t byte : bytes) *out++ = set.characters[byte];
}

std::size_t charsets::encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::encode(text, set, bytes);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::encode(text, set, bytes);
#endif
  return scalar::encode(text, set, bytes);
}

void charsets::decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::decode(bytes, set, text);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::decode(bytes, set, text);
#endif
  scalar::decode(bytes, set, text);
}

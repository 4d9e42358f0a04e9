#include "host/utf.h"

namespace {

constexpr bool isSurrogate(char32_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDFFF; }
constexpr bool isHighSurrogate(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::size_t utf::toUtf16(Utf32View codePoints, std::span<char16_t> units) noexcept {
  char16_t* out = units.data();
  for (const char32_t c : codePoints) {
    if (c < 0x10000) {
      if (!isSurrogate(c)) *out++ = static_cast<char16_t>(c);
    } else if (c > 0x10FFFF) {
      *out++ = u'\uFFFD';
    } else {
      *out++ = static_cast<char16_t>(((c - 0x10000) >> 10) + 0xD800);
      *out++ = static_cast<char16_t>(((c - 0x10000) & 0x3FF) | 0xDC00);
    }
  }
  *out = 0;
  return static_cast<std::size_t>(out - units.data());
}

std::size_t utf::toUtf32(Utf16View units, std::span<char32_t> codePoints) noexcept {
  char32_t* out = codePoints.data();
  const char16_t* in = units.data();
  const char16_t* const end = in + units.size();
  while (in != end) {
    const char16_t unit = *in++;
    if (!isSurrogate(unit) || in == end) {
      *out++ = unit;
      continue;
    }
    const char16_t next = *in++;
    if (isHighSurrogate(unit) && isLowSurrogate(next)) {
      *out++ = static_cast<char32_t>((unit - 0xD800) * 0x400 + (next - 0xDC00) + 0x10000);
    }
  }
  *out = 0;
  return static_cast<std::size_t>(out - codePoints.data());
}

#include "markup/encoding_need.h"

#include "markup/markup_characters.h"
#include "memory/wrapping.h"

namespace {

/// What is looked for besides markup characters.
enum class Also { kNothing, kNonASCII };

template <Also kAlso>
[[nodiscard]] constexpr bool needsEncoding(char32_t codePoint) noexcept {
  return markup::isMarkupCharacter(codePoint) || (kAlso == Also::kNonASCII && codePoint > 0x7F);
}

template <Also kAlso>
[[nodiscard]] WRAPPING_FUNCTION bool anyNeedsEncoding(Utf32View text) noexcept {
  constexpr std::size_t kBlock = 16;
  // Units that the search can't pass: counted from 1, so that 0 is above all.
  constexpr char32_t kHighest = kAlso == Also::kNonASCII ? 0x7F : 0xFFFF'FFFF;
  while (text.size() >= kBlock) {
    unsigned decisive = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {  // without branches, for the compiler to widen
      decisive |= (text[i] - 1 >= kHighest ? 1U : 0U) | markup::isMarkupCharacter(text[i]);
    }
    if (decisive != 0) break;
    text = text.subspan(kBlock);
  }
  for (const char32_t codePoint : text) {
    if (codePoint == 0) return false;
    if (needsEncoding<kAlso>(codePoint)) return true;
  }
  return false;
}

}  // namespace

bool encoding_need::scalar::forHtml(Utf32View text) noexcept { return anyNeedsEncoding<Also::kNonASCII>(text); }

bool encoding_need::scalar::forXml(Utf32View text) noexcept { return anyNeedsEncoding<Also::kNothing>(text); }

bool encoding_need::forHtml(Utf32View text) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::forHtml(text);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::forHtml(text);
#endif
  return scalar::forHtml(text);
}

bool encoding_need::forXml(Utf32View text) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::forXml(text);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::forXml(text);
#endif
  return scalar::forXml(text);
}

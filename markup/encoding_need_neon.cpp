#include "markup/encoding_need.h"

#ifdef WIDE_NEON

#include <bit>

#include "markup/markup_characters_neon.h"
#include "wide/code_points_neon.h"

namespace {

/// Marks the code points that end the search, among 16 of them. For HTML, those beyond ASCII do.
template <bool kForHtml>
[[nodiscard]] NEON_FUNCTION inline uint8x16_t decisive(const char32_t* block, uint8x16_t markupOrNul) noexcept {
  const uint8x16_t bytes = kForHtml ? wide::nearestBytes(block) : wide::nearestSignedBytes(block);
  const uint8x16_t found = markup::foundIn(markupOrNul, bytes);
  return kForHtml ? vorrq_u8(found, vcgeq_u8(bytes, wide::all(0x80))) : found;
}

template <bool kForHtml>
[[nodiscard]] NEON_FUNCTION inline bool anyNeedsEncoding(Utf32View text) noexcept {
  const uint8x16_t markupOrNul = markup::loaded(markup::kMarkupOrNul);
  for (; text.size() >= wide::kCodePoints; text = text.subspan(wide::kCodePoints)) {
    const uint8x16_t mask = decisive<kForHtml>(text.data(), markupOrNul);
    if (wide::any(mask)) return text[static_cast<std::size_t>(std::countr_zero(wide::bits(mask)))] != 0;
  }
  return kForHtml ? encoding_need::scalar::forHtml(text) : encoding_need::scalar::forXml(text);
}

}  // namespace

NEON_FUNCTION bool encoding_need::neon::forHtml(Utf32View text) noexcept { return anyNeedsEncoding<true>(text); }

NEON_FUNCTION bool encoding_need::neon::forXml(Utf32View text) noexcept { return anyNeedsEncoding<false>(text); }

#endif  // WIDE_NEON

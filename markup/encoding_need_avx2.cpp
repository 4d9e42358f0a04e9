#include "markup/encoding_need.h"

#ifdef WIDE_AVX2
#include <immintrin.h>

#include "markup/markup_characters_avx2.h"
#include "wide/code_point_blocks.h"

namespace {

constexpr std::size_t kBlock = 16;

/// Narrowing for HTML gives characters above U+007F a byte that ends the search, narrowing for XML one that doesn't.
constexpr auto kForHtml = wide::Nearest::kUnsignedByte;
constexpr auto kForXml = wide::Nearest::kSignedByte;

/// One bit for each of 16 code points that ends the search.
template <wide::Nearest kNearest>
[[nodiscard]] AVX2_FUNCTION inline unsigned decisiveAmong16(const char32_t* block, __m128i markupOrNul) noexcept {
  const __m128i bytes = wide::narrowed16<kNearest>(block);
  const __m128i found = _mm_cmpeq_epi8(_mm_shuffle_epi8(markupOrNul, bytes), bytes);
  return static_cast<unsigned>(_mm_movemask_epi8(kNearest == kForHtml ? _mm_or_si128(found, bytes) : found));
}

template <wide::Nearest kNearest>
[[nodiscard]] AVX2_FUNCTION inline unsigned decisiveAmong32(const char32_t* block, __m256i markupOrNul) noexcept {
  const __m256i bytes = wide::narrowed32<kNearest>(block);
  const __m256i found = _mm256_cmpeq_epi8(_mm256_shuffle_epi8(markupOrNul, bytes), bytes);
  return static_cast<unsigned>(_mm256_movemask_epi8(kNearest == kForHtml ? _mm256_or_si256(found, bytes) : found));
}

template <wide::Nearest kNearest>
[[nodiscard]] AVX2_FUNCTION inline bool anyNeedsEncoding(Utf32View text) noexcept {
  const __m128i table = markup::loaded(markup::kMarkupOrNul);
  const __m256i twoTables = _mm256_broadcastsi128_si256(table);
  const char32_t* at = text.data();
  std::size_t left = text.size();
  for (; left >= 2 * kBlock; at += 2 * kBlock, left -= 2 * kBlock) {
    const unsigned decisive = decisiveAmong32<kNearest>(at, twoTables);
    if (decisive != 0) return at[_tzcnt_u32(decisive)] != 0;
  }
  if (left >= kBlock) {
    const unsigned decisive = decisiveAmong16<kNearest>(at, table);
    if (decisive != 0) return at[_tzcnt_u32(decisive)] != 0;
    at += kBlock;
    left -= kBlock;
  }
  const wide::CodePointTail tail(at, left);  // the zeros behind the text end the search at the latest
  const unsigned decisive = decisiveAmong16<kNearest>(tail.block, table);
  return tail.block[_tzcnt_u32(decisive)] != 0;
}

}  // namespace

AVX2_FUNCTION bool encoding_need::avx2::forHtml(Utf32View text) noexcept { return anyNeedsEncoding<kForHtml>(text); }

AVX2_FUNCTION bool encoding_need::avx2::forXml(Utf32View text) noexcept { return anyNeedsEncoding<kForXml>(text); }
#endif  // WIDE_AVX2

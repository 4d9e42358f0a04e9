#include "markup/xml_encoder.h"

#ifdef WIDE_AVX2
#include <immintrin.h>

#include "markup/markup_characters_avx2.h"
#include "markup/xml_references.h"
#include "wide/code_point_blocks.h"

namespace {

constexpr unsigned kBlock = 16;

/// One bit for each code point of a block that isn't copied.
[[nodiscard]] AVX2_FUNCTION inline unsigned notOrdinary(const char32_t* block, __m128i exceptions) noexcept {
  const __m128i bytes = wide::narrowed16<wide::Nearest::kSignedByte>(block);
  const __m128i exception = _mm_cmpeq_epi8(_mm_shuffle_epi8(exceptions, bytes), bytes);
  const __m128i control = _mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(0x1F)), bytes);
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_xor_si128(exception, control)));
}

/// Writes 8 code points, those from number `first` on in front; the caller counts on as many as are left.
AVX2_FUNCTION inline void writeFrom(std::size_t first, __m256i codePoints, std::uint8_t* out) noexcept {
  static constexpr std::int32_t kOrder[16] = {0, 1, 2, 3, 4, 5, 6, 7};
  const __m256i order = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(kOrder + first));
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_permutevar8x32_epi32(codePoints, order));
}

/// Writes the first `count` of 8 code points of which some may be special.
AVX2_FUNCTION inline std::uint8_t* writeMixed(const char32_t* eight, std::size_t count, unsigned special,
                                              const xml::References& references, std::uint8_t* out) noexcept {
  const __m256i codePoints = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(eight));
  std::size_t run = 0;  // the first code point that isn't written yet
  for (; special != 0; special = _blsr_u32(special)) {
    const std::size_t next = _tzcnt_u32(special);
    writeFrom(run, codePoints, out);
    out = xml::writeReference(eight[next], references, out + 4 * (next - run));
    run = next + 1;
  }
  writeFrom(run, codePoints, out);
  return out + 4 * (count - run);
}

/// Writes the first `count` code points of a whole block.
AVX2_FUNCTION inline std::uint8_t* writeBlock(const char32_t* block, std::size_t count, __m128i exceptions,
                                              const xml::References& references, std::uint8_t* out) noexcept {
  const unsigned special = _bzhi_u32(notOrdinary(block, exceptions), static_cast<unsigned>(count));
  if (special != 0) {
    const std::size_t half = count < 8 ? count : 8;
    out = writeMixed(block, half, special & 0xFF, references, out);
    return writeMixed(block + 8, count - half, special >> 8, references, out);
  }
  writeFrom(0, _mm256_loadu_si256(reinterpret_cast<const __m256i*>(block)), out);
  writeFrom(0, _mm256_loadu_si256(reinterpret_cast<const __m256i*>(block + 8)), out + 32);
  return out + 4 * count;
}

constexpr int kBlockRoom = kBlock * xml::kReferenceRoom + 64;

}  // namespace

AVX2_FUNCTION bool xml::avx2::encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept {
  const __m128i exceptions = markup::loaded(markup::kMarkupOrKeptControl);
  const References& references = referencesFor(apostrophe);
  const char32_t* at = text.data();
  std::size_t left = text.size();
  std::uint8_t* out = codePoints.begin();
  for (; left >= kBlock; at += kBlock, left -= kBlock) {
    if (!codePoints.makeRoom(out, kBlockRoom)) return false;
    out = writeBlock(at, kBlock, exceptions, references, out);
  }
  if (left != 0) {
    if (!codePoints.makeRoom(out, kBlockRoom)) return false;
    const wide::CodePointTail tail(at, left);
    out = writeBlock(tail.block, left, exceptions, references, out);
  }
  return codePoints.finish(out);
}
#endif  // WIDE_AVX2

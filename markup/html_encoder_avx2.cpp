#include "markup/html_encoder.h"

#ifdef WIDE_AVX2
#include <immintrin.h>

#include "markup/decimal_reference_avx2.h"
#include "markup/entity_lookup.h"
#include "markup/html_references.h"
#include "markup/markup_characters_avx2.h"
#include "wide/code_point_blocks.h"
#include "wide/partial_vector.h"

namespace {

constexpr unsigned kBlock = 16;

/// One bit for each byte that isn't written as it is.
[[nodiscard]] AVX2_FUNCTION inline unsigned notOrdinary(__m128i bytes, __m128i exceptions) noexcept {
  const __m128i exception = _mm_cmpeq_epi8(_mm_shuffle_epi8(exceptions, bytes), bytes);
  const __m128i outsidePrintable = _mm_cmpgt_epi8(_mm_set1_epi8(0x20), bytes);  // controls, and from 0x80 on
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_xor_si128(exception, outsidePrintable)));
}

/// Writes 16 bytes, those from number `first` on in front; the caller counts on as many as are left.
AVX2_FUNCTION inline void writeFrom(unsigned first, __m128i bytes, std::uint8_t* out) noexcept {
  const __m128i order = _mm_loadu_si128(reinterpret_cast<const __m128i*>(wide::kMoveToFront.data() + first));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(bytes, order));
}

/// Writes a block in which some code points are special.
/// @param bytes    all of the block, right for those that aren't special
/// @param special  one bit for each that is
AVX2_FUNCTION std::uint8_t* writeMixed(const char32_t* block, unsigned count, __m128i bytes, unsigned special,
                                       std::uint8_t* out) noexcept {
  markup::DecimalReferences decimal;
  bool computed = false;
  unsigned run = 0;  // the first byte that isn't written yet
  do {
    const unsigned next = _tzcnt_u32(special);
    const char32_t codePoint = block[next];
    writeFrom(run, bytes, out);
    out += next - run;
    run = next + 1;
    if (entities::mayHaveRecord(codePoint)) {
      const std::size_t position = entities::avx2::positionOf(codePoint);
      if (entities::kCodes[position] == codePoint) {
        out = html::writeNamedReference(position, out);
        continue;
      }
      if (codePoint < 0x80) continue;
    }
    if (!markup::DecimalReferences::covers(codePoint)) {
      out = markup::writeDecimalReference(codePoint, out);
      continue;
    }
    if (!computed) decimal.compute(block);
    computed = true;
    out = decimal.write(next, out);
  } while ((special = _blsr_u32(special)) != 0);
  writeFrom(run, bytes, out);
  return out + (count - run);
}

/// Writes the first `count` code points of a whole block.
AVX2_FUNCTION inline std::uint8_t* writeBlock(const char32_t* block, unsigned count, __m128i exceptions,
                                              std::uint8_t* out) noexcept {
  const __m128i bytes = wide::narrowed16<wide::Nearest::kUnsignedByte>(block);
  const unsigned special = _bzhi_u32(notOrdinary(bytes, exceptions), count);
  if (special != 0) return writeMixed(block, count, bytes, special, out);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(out), bytes);
  return out + count;
}

}  // namespace

AVX2_FUNCTION bool html::avx2::encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept {
  const __m128i exceptions =
      markup::loaded(markup == Markup::kKeep ? markup::kKeptControl : markup::kMarkupOrKeptControl);
  const char32_t* at = text.data();
  std::size_t left = text.size();
  std::uint8_t* out = ascii.begin();
  for (; left >= kBlock; at += kBlock, left -= kBlock) {
    if (!ascii.makeRoom(out, kBlock * kReferenceRoom + kBlock)) return false;
    out = writeBlock(at, kBlock, exceptions, out);
  }
  if (left != 0) {
    if (!ascii.makeRoom(out, kBlock * kReferenceRoom + kBlock)) return false;
    const wide::CodePointTail tail(at, left);
    out = writeBlock(tail.block, static_cast<unsigned>(left), exceptions, out);
  }
  return ascii.finish(out);
}
#endif  // WIDE_AVX2

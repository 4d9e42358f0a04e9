/// Quoted-printable in vectors of 32 bytes.
#include "codecs/quoted_printable.h"

#ifdef WIDE_AVX2

#include <algorithm>

#include "codecs/hex_escapes_avx2.h"
#include "codecs/quoted_printable_layout.h"
#include "wide/compaction.h"
#include "wide/partial_vector.h"

namespace {

using wide::all;
using wide::bits;
using wide::kVector;
using wide::load;

AVX2_FUNCTION inline __m256i equal(__m256i bytes, std::uint8_t byte) noexcept {
  return _mm256_cmpeq_epi8(bytes, all(byte));
}

/// The bytes that can't stand for themselves in a line; line breaks are among them.
AVX2_FUNCTION inline std::uint32_t notLiteral(__m256i bytes) noexcept {
  const __m256i control = _mm256_andnot_si256(equal(bytes, '\t'), _mm256_cmpgt_epi8(all(0x20), bytes));  // or >= 0x80
  return bits(_mm256_or_si256(control, _mm256_or_si256(equal(bytes, '='), equal(bytes, 0x7F))));
}

/// True for text that isn't copied as it is.
AVX2_FUNCTION inline bool isAnySpecial(__m256i bytes) noexcept {
  return bits(_mm256_or_si256(equal(bytes, '='), _mm256_or_si256(equal(bytes, '\r'), equal(bytes, '\n')))) != 0;
}

/// Each byte read together with the one after it as two digits; what isn't one counts as 0.
/// @param values  of the characters, moved down by one
AVX2_FUNCTION inline __m256i followingPairs(__m256i values) noexcept {
  const __m256i upperHalf = _mm256_permute2x128_si256(values, values, 0x81);
  const __m256i high = _mm256_alignr_epi8(upperHalf, values, 1);
  const __m256i low = _mm256_alignr_epi8(upperHalf, values, 2);
  return _mm256_or_si256(_mm256_slli_epi16(high, 4), low);
}

}  // namespace

AVX2_FUNCTION quoted_printable::Progress quoted_printable::avx2::escape(ByteView bytes, std::size_t limit,
                                                                        std::uint8_t* out) noexcept {
  const std::uint8_t* in = bytes.data();
  const std::uint8_t* const end = in + std::min(bytes.size(), limit);
  while (end - in >= kVector) {
    const __m256i vector = load(in);
    const std::uint32_t special = notLiteral(vector);
    if (special == 0) {
      wide::store(out, vector);
      in += kVector;
      out += kVector;
      continue;
    }
    const std::uint32_t breaks = bits(_mm256_or_si256(equal(vector, '\r'), equal(vector, '\n')));
    const unsigned count = _tzcnt_u32(breaks);  // what is written for the bytes behind it gets overwritten
    const std::uint32_t escaped = wide::below(special, count);
    if (escaped == 0) {
      wide::store(out, vector);
    } else if (escaped == ~0U) {
      ::avx2::storeAllEscaped(out, vector);
    } else {
      ::avx2::storeEscaped(out, vector, vector, escaped);
    }
    in += count;
    out += count + 2 * static_cast<unsigned>(_mm_popcnt_u32(escaped));
    if (breaks != 0) return {in, out};
  }
  return scalar::escape({in, end}, limit, out);
}

AVX2_FUNCTION std::size_t quoted_printable::avx2::decode(ByteView text, ByteSpan bytes) noexcept {
  const std::uint8_t* const end = text.data() + text.size();
  Progress at{text.data(), bytes.data()};
  while (end - at.in >= kVector) {
    const __m256i vector = load(at.in);
    if (!isAnySpecial(vector)) {
      wide::store(at.out, vector);
      at = {at.in + kVector, at.out + kVector};
      continue;
    }
    const __m256i isMark = equal(vector, '=');
    const __m256i isReturn = equal(vector, '\r');
    const __m256i isFeed = equal(vector, '\n');
    const __m256i values = ::avx2::hexValues(vector);
    const __m256i isNoDigit = _mm256_andnot_si256(equal(vector, '0'), equal(values, 0));
    const Layout layout = layoutOf(bits(isMark), bits(isReturn), bits(isFeed), ~bits(isNoDigit));
    const __m256i unescaped = _mm256_blendv_epi8(vector, followingPairs(values), isMark);
    const __m256i decoded = _mm256_blendv_epi8(unescaped, all('\n'), isReturn);
    if (layout.odd == 0) {  // the usual case on its own, so that where to read next doesn't wait for the layout
      at = {at.in + kVector, wide::storeKept(at.out, decoded, ~layout.dropped)};
      continue;
    }
    const unsigned count = _tzcnt_u32(layout.odd);
    if (count != 0) {
      at = {at.in + count, wide::storeKept(at.out, decoded, wide::below(~layout.dropped, count))};
    } else {
      at = scalar::decodeSpecial(at, end);
    }
  }
  const auto done = static_cast<std::size_t>(at.out - bytes.data());
  const auto rest = static_cast<std::size_t>(end - at.in);
  if (bytes.size() - done >= kVector) {
    const __m256i vector = wide::loadUpTo32(at.in, rest);
    if (!isAnySpecial(vector)) {
      wide::store(at.out, vector);
      return done + rest;
    }
  }
  return done + scalar::decode({at.in, end}, bytes.subspan(done));
}

#endif  // WIDE_AVX2

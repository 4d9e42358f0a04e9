/// Percent-encoding in vectors of 32 bytes.
#include "codecs/url.h"

#ifdef WIDE_AVX2

#include "codecs/hex_escapes_avx2.h"
#include "codecs/url_characters.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using wide::all;
using wide::kVector;

/// Ends of fewer bytes than this are written one by one.
constexpr std::size_t kWideFrom = 6;

/// The bytes that are escaped, a bit each. A byte of 0x80 or above finds nothing in the rows.
AVX2_FUNCTION inline std::uint32_t escapedIn(__m256i bytes, __m256i literalRows) noexcept {
  const __m256i kBitOfHighNibble =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0));
  const __m256i highNibbles = _mm256_and_si256(_mm256_srli_epi16(bytes, 4), all(0x0F));
  const __m256i literal =
      _mm256_and_si256(_mm256_shuffle_epi8(literalRows, bytes), _mm256_shuffle_epi8(kBitOfHighNibble, highNibbles));
  return wide::bits(_mm256_cmpeq_epi8(literal, _mm256_setzero_si256()));
}

/// The bytes as they show where they are not escaped: only a space can differ then, and is a "+".
AVX2_FUNCTION inline __m256i charactersOf(__m256i bytes) noexcept {
  return _mm256_blendv_epi8(bytes, all('+'), _mm256_cmpeq_epi8(bytes, all(' ')));
}

/// What escapes take beyond the bytes themselves.
AVX2_FUNCTION inline std::size_t added(std::uint32_t escaped) noexcept {
  return 2 * static_cast<std::size_t>(_mm_popcnt_u32(escaped));
}

}  // namespace

AVX2_FUNCTION std::size_t url::avx2::encode(ByteView bytes, Options options, ByteSpan text) noexcept {
  const std::uint8_t* const rows = kCharacters[options.index()].literalRows.data();
  const __m256i literalRows = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(rows)));
  const std::uint8_t* in = bytes.data();
  std::size_t left = bytes.size();
  std::uint8_t* out = text.data();
  for (; left >= kVector; left -= kVector) {
    const __m256i block = wide::load(in);
    const std::uint32_t escaped = escapedIn(block, literalRows);
    in += kVector;
    if (escaped == 0) {
      wide::store(out, charactersOf(block));
    } else if (escaped == ~0U) {
      ::avx2::storeAllEscaped(out, block, kEscape);
    } else {
      ::avx2::storeEscaped(out, block, charactersOf(block), escaped, kEscape);
    }
    out += kVector + added(escaped);
  }
  const auto done = static_cast<std::size_t>(out - text.data());
  const std::size_t touched = kVector + 2 * left + kEscapeOverrun;
  if (left < kWideFrom || text.size() - done < touched) {
    return done + scalar::encode({in, left}, options, text.subspan(done));
  }
  const __m256i block = wide::loadUpTo32(in, left);
  const std::uint32_t escaped = wide::below(escapedIn(block, literalRows), static_cast<unsigned>(left));
  ::avx2::storeEscaped(out, block, charactersOf(block), escaped, kEscape);
  return done + left + added(escaped);
}

#endif  // WIDE_AVX2

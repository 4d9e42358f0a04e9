/// Percent-encoding in vectors of 32 bytes.
#include "codecs/url.h"

#ifdef WIDE_AVX2

#include "codecs/hex_escapes_avx2.h"
#include "codecs/url_characters_avx2.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using wide::kVector;

/// Ends of fewer bytes than this are written one by one.
constexpr std::size_t kWideFrom = 6;

/// What escapes take beyond the bytes themselves.
AVX2_FUNCTION inline std::size_t added(std::uint32_t escaped) noexcept {
  return 2 * static_cast<std::size_t>(_mm_popcnt_u32(escaped));
}

}  // namespace

AVX2_FUNCTION std::size_t url::avx2::encode(ByteView bytes, Options options, ByteSpan text) noexcept {
  const __m256i literalRows = literalRowsFor(options);
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

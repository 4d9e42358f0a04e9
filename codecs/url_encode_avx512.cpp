/// Percent-encoding of long texts, with escapes in vectors of 64 bytes.
#include "codecs/url.h"

#ifdef WIDE_AVX512

#include "codecs/hex_escapes_avx2.h"
#include "codecs/hex_escapes_avx512.h"
#include "codecs/url_characters_avx2.h"

AVX512_FUNCTION std::size_t url::avx512::encode(ByteView bytes, Options options, ByteSpan text) noexcept {
  constexpr std::size_t kVector = wide::kVector;
  const __m256i literalRows = avx2::literalRowsFor(options);
  const std::uint8_t* in = bytes.data();
  std::size_t left = bytes.size();
  std::uint8_t* out = text.data();
  // What is touched beyond a vector's text is written by the bytes after it.
  for (; left >= kVector + ::avx512::kEscapeReach; left -= kVector) {
    const __m256i block = wide::load(in);
    const __m256i characters = avx2::charactersOf(block);
    const std::uint32_t escaped = avx2::escapedIn(block, literalRows);
    in += kVector;
    if (escaped == 0) {
      wide::store(out, characters);
      out += kVector;
    } else if (escaped == ~0U) {
      ::avx2::storeAllEscaped(out, block, kEscape);
      out += 3 * kVector;
    } else {
      out = ::avx512::storeEscaped(out, block, characters, escaped, kEscape);
    }
  }
  const auto done = static_cast<std::size_t>(out - text.data());
  return done + avx2::encode({in, left}, options, text.subspan(done));
}

#endif  // WIDE_AVX512

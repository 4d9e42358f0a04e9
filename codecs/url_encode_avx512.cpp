/// Percent-encoding of long texts, with escapes in vectors of 64 bytes.
#include "codecs/url.h"

#ifdef WIDE_AVX512

#include "codecs/hex_escapes_avx2.h"
#include "codecs/hex_escapes_avx512.h"
#include "codecs/url_characters_avx2.h"

namespace {

using wide::kVector;

/// After this many bytes without an escape, more of them are expected.
constexpr std::ptrdiff_t kRun = 4 * kVector;

/// Copies 64 bytes at a time, up to those that hold one to escape.
/// @return how many bytes were copied
[[gnu::noinline]] AVX512_FUNCTION std::size_t copyLiteral(const std::uint8_t* in, std::size_t left, std::uint8_t* out,
                                                          __m256i literalRows) noexcept {
  std::size_t i = 0;
  for (; left - i >= 2 * kVector; i += 2 * kVector) {
    const __m256i front = wide::load(in + i);
    const __m256i back = wide::load(in + i + kVector);
    if ((url::avx2::escapedIn(front, literalRows) | url::avx2::escapedIn(back, literalRows)) != 0) break;
    wide::store(out + i, url::avx2::charactersOf(front));
    wide::store(out + i + kVector, url::avx2::charactersOf(back));
  }
  return i;
}

}  // namespace

AVX512_FUNCTION std::size_t url::avx512::encode(ByteView bytes, Options options, ByteSpan text) noexcept {
  const __m256i literalRows = avx2::literalRowsFor(options);
  const std::uint8_t* in = bytes.data();
  std::size_t left = bytes.size();
  std::uint8_t* out = text.data();
  const std::uint8_t* runStart = in;
  // What is touched beyond a vector's text is written by the bytes after it.
  for (; left >= kVector + ::avx512::kEscapeReach; left -= kVector) {
    const __m256i block = wide::load(in);
    const __m256i characters = avx2::charactersOf(block);
    const std::uint32_t escaped = avx2::escapedIn(block, literalRows);
    in += kVector;
    if (escaped == 0) {
      wide::store(out, characters);
      out += kVector;
      if (in - runStart < kRun) continue;
      const std::size_t literal = copyLiteral(in, left - kVector, out, literalRows);
      in += literal;
      out += literal;
      left -= literal;
      runStart = in;
      continue;
    }
    runStart = in;
    if (escaped == ~0U) {
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

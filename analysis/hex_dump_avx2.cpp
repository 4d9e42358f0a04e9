/// Hex dumps 16 bytes of text at a time.
#include "analysis/hex_dump.h"

#ifdef WIDE_AVX2

#include <immintrin.h>

#include "analysis/hex_dump_steps.h"
#include "codecs/hex_digits_avx2.h"

namespace {

using hex_dump::Step;
using hex_dump::Steps;

/// The 16 digits of 8 bytes.
AVX2_FUNCTION inline __m128i digitsOf8(const std::uint8_t* in) noexcept {
  const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(in));
  const __m128i nibbles = _mm_unpacklo_epi8(_mm_srli_epi16(bytes, 4), bytes);
  return avx2::hexDigits(_mm_and_si128(nibbles, _mm_set1_epi8(0x0F)));
}

AVX2_FUNCTION inline __m128i load16(const std::array<std::uint8_t, 16>& bytes) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data()));
}

AVX2_FUNCTION void repeat(const Steps& steps, std::int64_t times, const std::uint8_t* in, std::uint8_t* out) noexcept {
  const Step* const end = steps.end();
  for (; times > 0; --times) {
    for (const Step* step = steps.begin(); step != end; ++step) {
      const __m128i digits = _mm_shuffle_epi8(digitsOf8(in + step->in), load16(step->digitIndex));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + step->out), _mm_or_si128(digits, load16(step->fixed)));
    }
    in += steps.digitCount() / 2;
    out += steps.size();
  }
}

}  // namespace

void hex_dump::avx2::write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  writeRepeated(bytes, layout, text, repeat);
}

#endif  // WIDE_AVX2

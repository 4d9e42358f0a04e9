/// yEnc in vectors of 64 bytes, with the instruction that moves the kept bytes of a vector together.
#include "codecs/yenc.h"

#ifdef WIDE_AVX512

#include <bit>
#include <immintrin.h>

#include "codecs/escape_pairs.h"

namespace {

using Escapes = EscapePairs<std::uint64_t>;

constexpr std::ptrdiff_t kVector = 64;

AVX512_FUNCTION inline __m512i all(std::uint8_t byte) noexcept { return _mm512_set1_epi8(static_cast<char>(byte)); }

AVX512_FUNCTION inline Escapes escapesIn(__m512i vector, std::uint64_t carried) noexcept {
  return pairedOff<std::uint64_t>(_mm512_cmpeq_epi8_mask(vector, all(yenc::kEscape)), carried);
}

/// The decoded bytes of a vector, moved together.
AVX512_FUNCTION inline __m512i decoded(__m512i vector, Escapes escapes) noexcept {
  const __m512i shifted = _mm512_sub_epi8(vector, all(yenc::kShift));
  const __m512i bytes = _mm512_mask_sub_epi8(shifted, escapes.escaped, shifted, all(yenc::kEscapedShift));
  return _mm512_maskz_compress_epi8(~escapes.escaping, bytes);
}

/// The lowest bits, 0 to 63 of them.
constexpr std::uint64_t firstBits(std::ptrdiff_t count) noexcept { return (std::uint64_t{1} << count) - 1; }

}  // namespace

AVX512_FUNCTION std::size_t yenc::avx512::decode(ByteView data, ByteSpan bytes) noexcept {
  const std::uint8_t* in = data.data();
  const std::uint8_t* const end = in + data.size();
  std::uint8_t* out = bytes.data();
  std::uint64_t carried = 0;
  for (; end - in >= kVector; in += kVector) {
    const __m512i vector = _mm512_loadu_si512(in);
    const Escapes escapes = escapesIn(vector, carried);
    _mm512_storeu_si512(out, decoded(vector, escapes));
    out += kVector - std::popcount(escapes.escaping);
    carried = escapes.escaping >> 63;
  }
  const std::ptrdiff_t rest = end - in;
  if (rest != 0) {
    const __m512i vector = _mm512_maskz_loadu_epi8(firstBits(rest), in);
    const Escapes escapes = escapesIn(vector, carried);
    const std::ptrdiff_t kept = rest - std::popcount(escapes.escaping);
    _mm512_mask_storeu_epi8(out, firstBits(kept), decoded(vector, escapes));
    out += kept;
    carried = escapes.escaping >> (rest - 1);
  }
  if (carried != 0) *out++ = static_cast<std::uint8_t>(0 - kEscapedShift - kShift);
  return static_cast<std::size_t>(out - bytes.data());
}

#endif  // WIDE_AVX512

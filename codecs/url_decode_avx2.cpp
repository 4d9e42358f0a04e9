/// Percent-decoding in vectors of 32 bytes.
#include "codecs/url.h"

#ifdef WIDE_AVX2

#include "codecs/hex_digits_avx2.h"
#include "codecs/url_escape_starts.h"
#include "wide/compaction.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using wide::all;
using wide::kVector;
using wide::load;

/// Bytes from one position of the text on, and from the two after it.
struct Text {
  __m256i bytes;
  __m256i second;
  __m256i third;
};

AVX2_FUNCTION inline std::uint32_t marksIn(__m256i bytes) noexcept {
  return wide::bits(_mm256_cmpeq_epi8(bytes, all('%')));
}

AVX2_FUNCTION inline __m256i withSpaces(__m256i bytes, __m256i plus) noexcept {
  return _mm256_blendv_epi8(bytes, plus, _mm256_cmpeq_epi8(bytes, all('+')));
}

/// Writes what comes before the first 64 bytes that hold an escape, 64 bytes at a time.
/// @return how many bytes that are
AVX2_FUNCTION inline std::size_t copyPlain(ByteView text, std::uint8_t* out, __m256i plus) noexcept {
  std::size_t i = 0;
  for (; text.size() - i >= 2 * kVector; i += 2 * kVector) {
    const __m256i front = load(text.data() + i);
    const __m256i back = load(text.data() + i + kVector);
    const __m256i marks = _mm256_or_si256(_mm256_cmpeq_epi8(front, all('%')), _mm256_cmpeq_epi8(back, all('%')));
    if (wide::bits(marks) != 0) break;
    wide::store(out + i, withSpaces(front, plus));
    wide::store(out + i + kVector, withSpaces(back, plus));
  }
  return i;
}

/// The last bytes of the text, followed by zeros.
AVX2_FUNCTION inline Text lastText(__m256i bytes) noexcept {
  const __m256i upperHalf = _mm256_permute2x128_si256(bytes, bytes, 0x81);
  return {bytes, _mm256_alignr_epi8(upperHalf, bytes, 1), _mm256_alignr_epi8(upperHalf, bytes, 2)};
}

/// The bytes with the byte it stands for in place of each escape's "%".
AVX2_FUNCTION inline __m256i decoded(const Text& text, __m256i plus, std::uint32_t starts) noexcept {
  const __m256i high = _mm256_slli_epi16(avx2::hexValues(text.second), 4);
  const __m256i values = _mm256_or_si256(high, avx2::hexValues(text.third));
  return _mm256_blendv_epi8(withSpaces(text.bytes, plus), values, wide::bytesOfBits(starts));
}

}  // namespace

AVX2_FUNCTION std::size_t url::avx2::decode(ByteView text, Options options, ByteSpan bytes) noexcept {
  const __m256i plus = all(options.readsPlusAsSpace() ? ' ' : '+');
  const std::size_t plain = copyPlain(text, bytes.data(), plus);
  const std::uint8_t* in = text.data() + plain;
  std::size_t left = text.size() - plain;
  std::uint8_t* out = bytes.data() + plain;
  std::uint64_t carried = 0;  // the bytes that belong to the last escape of the vector before
  for (; left >= kVector + kEscapeSize - 1; left -= kVector) {
    const Text block{load(in), load(in + 1), load(in + 2)};
    const std::uint64_t marks = marksIn(block.bytes);
    in += kVector;
    if ((marks | carried) == 0) {
      wide::store(out, withSpaces(block.bytes, plus));
      out += kVector;
      continue;
    }
    const std::uint32_t starts = escapeStarts(static_cast<std::uint32_t>(marks & ~carried));
    const std::uint64_t dropped = digitsOf(starts) | carried;
    out = wide::storeKept(out, decoded(block, plus, starts), static_cast<std::uint32_t>(~dropped));
    carried = dropped >> kVector;
  }
  while (left != 0) {
    const Text block = lastText(wide::loadUpTo32(in, left < kVector ? left : kVector));
    // Where one more byte follows, the last two of the vector are left for the next round.
    const std::size_t count = left <= kVector ? left : kVector - (kEscapeSize - 1);
    in += count;
    left -= count;
    const auto marks = wide::below(marksIn(block.bytes), static_cast<unsigned>(count));
    const std::uint32_t starts = escapeStarts(static_cast<std::uint32_t>(marks & ~carried));
    const std::uint64_t dropped = digitsOf(starts) | carried;
    const std::uint32_t kept = wide::below(static_cast<std::uint32_t>(~dropped), static_cast<unsigned>(count));
    const bool hasRoom = bytes.data() + bytes.size() - out >= kVector;
    const __m256i result = decoded(block, plus, starts);
    out = hasRoom ? wide::storeKept(out, result, kept) : wide::storeKeptOnly(out, result, kept);
    carried = dropped >> count;
  }
  return static_cast<std::size_t>(out - bytes.data());
}

#endif  // WIDE_AVX2

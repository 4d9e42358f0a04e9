/// MySQL unescaping in vectors of 32 bytes.
#include "codecs/mysql.h"

#ifdef WIDE_AVX2

#include "codecs/escape_pairs.h"
#include "codecs/mysql_escapes.h"
#include "wide/compaction.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using mysql::kEscapes;
using wide::kVector;

AVX2_FUNCTION inline __m256i lookedUp(const std::array<std::uint8_t, 16>& table, __m256i slots) noexcept {
  const __m128i row = _mm_loadu_si128(reinterpret_cast<const __m128i*>(table.data()));
  return _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(row), slots);
}

AVX2_FUNCTION inline std::uint32_t backslashes(__m256i text) noexcept {
  return wide::bits(_mm256_cmpeq_epi8(text, wide::all('\\')));
}

/// 32 bytes unescaped, and which of them are kept, a bit each.
struct Block {
  __m256i bytes;
  std::uint32_t kept;
};

/// @param pairs      of the text's backslashes
/// @param following  the byte behind the text, or zero at the end
AVX2_FUNCTION inline Block unescapedBlock(__m256i text, EscapePairs<std::uint32_t> pairs,
                                          std::uint8_t following) noexcept {
  const __m256i moved = _mm256_add_epi8(text, wide::all(mysql::kHashOffset));
  const __m256i mixed = _mm256_xor_si256(moved, _mm256_srli_epi16(moved, 4));
  const __m256i slots = _mm256_and_si256(mixed, wide::all(0x0F));
  const __m256i escapable = _mm256_cmpeq_epi8(lookedUp(kEscapes.second, slots), text);
  const __m256i escaped = _mm256_and_si256(escapable, wide::bytesOfBits(pairs.escaped));
  const std::uint32_t followingIsEscaped =
      mysql::unescaped(following) >= 0 ? pairs.escaping & (std::uint32_t{1} << 31) : 0;
  const std::uint32_t dropped = wide::bits(escaped) >> 1 | followingIsEscaped;
  return {_mm256_blendv_epi8(text, lookedUp(kEscapes.meant, slots), escaped), ~dropped};
}

}  // namespace

AVX2_FUNCTION std::size_t mysql::avx2::decode(ByteView text, ByteSpan bytes) noexcept {
  const std::uint8_t* in = text.data();
  std::size_t left = text.size();
  std::uint8_t* out = bytes.data();
  std::uint32_t carried = 0;
  for (; left >= kVector; left -= kVector) {
    const __m256i block = wide::load(in);
    const std::uint32_t marks = backslashes(block);
    in += kVector;
    if ((marks | carried) == 0) {
      wide::store(out, block);
      out += kVector;
      continue;
    }
    const EscapePairs<std::uint32_t> pairs = pairedOff(marks, carried);
    const Block result = unescapedBlock(block, pairs, left > kVector ? *in : 0);
    out = wide::storeKept(out, result.bytes, result.kept);
    carried = pairs.escaping >> 31;
  }
  if (left != 0) {
    const __m256i block = wide::loadUpTo32(in, left);
    const Block result = unescapedBlock(block, pairedOff(backslashes(block), carried), 0);
    const std::uint32_t kept = wide::below(result.kept, static_cast<unsigned>(left));
    const bool hasRoom = bytes.data() + bytes.size() - out >= kVector;
    out = hasRoom ? wide::storeKept(out, result.bytes, kept) : wide::storeKeptOnly(out, result.bytes, kept);
  }
  return static_cast<std::size_t>(out - bytes.data());
}

#endif  // WIDE_AVX2

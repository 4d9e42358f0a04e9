/// Single-byte character sets in vectors of 32 characters.
#include "codecs/charsets.h"

#ifdef WIDE_AVX2

#include "wide/compaction.h"
#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace {

using wide::all;
using wide::kVector;

AVX2_FUNCTION inline __m256i loadUnits(const char16_t* units) noexcept {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(units));
}

AVX2_FUNCTION inline void storeUnits(char16_t* units, __m256i vector) noexcept {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(units), vector);
}

AVX2_FUNCTION inline __m256i inBothHalves(const std::uint8_t* row) noexcept {
  return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(row)));
}

/// 32 code units, the low halves apart from the high ones.
struct SplitUnits {
  __m256i low;
  __m256i high;
};

AVX2_FUNCTION inline SplitUnits split(__m256i front, __m256i back) noexcept {
  const __m256i kLowHalf = _mm256_set1_epi16(0x00FF);
  const __m256i low = _mm256_packus_epi16(_mm256_and_si256(front, kLowHalf), _mm256_and_si256(back, kLowHalf));
  const __m256i high = _mm256_packus_epi16(_mm256_srli_epi16(front, 8), _mm256_srli_epi16(back, 8));
  return {_mm256_permute4x64_epi64(low, _MM_SHUFFLE(3, 1, 2, 0)),
          _mm256_permute4x64_epi64(high, _MM_SHUFFLE(3, 1, 2, 0))};
}

/// The bytes from 0x80 to 0x9F.
AVX2_FUNCTION inline __m256i specials(__m256i bytes) noexcept {
  return _mm256_cmpeq_epi8(_mm256_and_si256(bytes, all(0xE0)), all(0x80));
}

/// The bytes of 32 code units, and which of them exist, a bit each.
struct EncodedBlock {
  __m256i bytes;
  std::uint32_t found;
};

AVX2_FUNCTION inline EncodedBlock encoded(__m256i front, __m256i back, const CharacterSet& set) noexcept {
  // Most text is of characters that have the number of their byte.
  if (_mm256_testz_si256(_mm256_or_si256(front, back), _mm256_set1_epi16(static_cast<short>(0xFF00))) != 0) {
    const __m256i bytes = _mm256_permute4x64_epi64(_mm256_packus_epi16(front, back), _MM_SHUFFLE(3, 1, 2, 0));
    if (set.isLatin1() || wide::bits(specials(bytes)) == 0) return {bytes, ~0U};
  }
  const SplitUnits units = split(front, back);
  __m256i found = _mm256_cmpeq_epi8(units.high, _mm256_setzero_si256());
  if (set.isLatin1()) return {units.low, wide::bits(found)};
  found = _mm256_andnot_si256(specials(units.low), found);
  __m256i bytes = units.low;
  const __m256i nibbles = _mm256_and_si256(units.low, all(0x0F));
  for (std::size_t i = 0; i < set.rowCount(); ++i) {
    const CharacterSet::SpecialRow& row = set.row(i);
    const __m256i lowEqual = _mm256_cmpeq_epi8(_mm256_shuffle_epi8(inBothHalves(row.low.data()), nibbles), units.low);
    const __m256i highEqual =
        _mm256_cmpeq_epi8(_mm256_shuffle_epi8(inBothHalves(row.high.data()), nibbles), units.high);
    const __m256i equal = _mm256_and_si256(lowEqual, highEqual);
    bytes = _mm256_blendv_epi8(bytes, _mm256_shuffle_epi8(inBothHalves(row.byte.data()), nibbles), equal);
    found = _mm256_or_si256(found, equal);
  }
  return {bytes, wide::bits(found)};
}

/// The code units of 32 bytes.
struct DecodedBlock {
  __m256i front;
  __m256i back;
};

AVX2_FUNCTION inline DecodedBlock widened(__m256i bytes) noexcept {
  return {_mm256_cvtepu8_epi16(_mm256_castsi256_si128(bytes)),
          _mm256_cvtepu8_epi16(_mm256_extracti128_si256(bytes, 1))};
}

/// The characters of the special bytes, the low halves apart from the high ones.
AVX2_FUNCTION inline SplitUnits specialCharacters(const CharacterSet& set) noexcept {
  return split(loadUnits(&set.characters[0x80]), loadUnits(&set.characters[0x90]));
}

/// Looks each byte up in the 32 bytes of `table`, by its five lowest bits.
AVX2_FUNCTION inline __m256i lookedUp(__m256i table, __m256i bytes) noexcept {
  const __m256i nibbles = _mm256_and_si256(bytes, all(0x0F));
  const __m256i inFirst = _mm256_shuffle_epi8(_mm256_permute2x128_si256(table, table, 0x00), nibbles);
  const __m256i inSecond = _mm256_shuffle_epi8(_mm256_permute2x128_si256(table, table, 0x11), nibbles);
  const __m256i fifthBitOnTop = _mm256_slli_epi16(bytes, 3);
  return _mm256_blendv_epi8(inFirst, inSecond, fifthBitOnTop);
}

AVX2_FUNCTION inline DecodedBlock decoded(__m256i bytes, const SplitUnits& characters) noexcept {
  const __m256i special = specials(bytes);
  const __m256i low = _mm256_blendv_epi8(bytes, lookedUp(characters.low, bytes), special);
  const __m256i high = _mm256_and_si256(lookedUp(characters.high, bytes), special);
  const __m256i even = _mm256_unpacklo_epi8(low, high);
  const __m256i odd = _mm256_unpackhi_epi8(low, high);
  return {_mm256_permute2x128_si256(even, odd, 0x20), _mm256_permute2x128_si256(even, odd, 0x31)};
}

AVX2_FUNCTION inline DecodedBlock decoded(__m256i bytes, const SplitUnits& characters, bool isLatin1) noexcept {
  return isLatin1 || wide::bits(specials(bytes)) == 0 ? widened(bytes) : decoded(bytes, characters);
}

AVX2_FUNCTION inline void storeBlock(char16_t* to, const DecodedBlock& block) noexcept {
  storeUnits(to, block.front);
  storeUnits(to + kVector / 2, block.back);
}

}  // namespace

AVX2_FUNCTION std::size_t charsets::avx2::encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept {
  const char16_t* in = text.data();
  std::size_t left = text.size();
  std::uint8_t* out = bytes.data();
  for (; left >= kVector; left -= kVector) {
    const EncodedBlock block = encoded(loadUnits(in), loadUnits(in + kVector / 2), set);
    in += kVector;
    if (block.found == ~0U) {
      wide::store(out, block.bytes);
      out += kVector;
    } else {
      out = wide::storeKept(out, block.bytes, block.found);
    }
  }
  if (left == 0) return static_cast<std::size_t>(out - bytes.data());
  const auto* const rest = reinterpret_cast<const std::uint8_t*>(in);
  const std::size_t restSize = 2 * left;
  const __m256i front = wide::loadUpTo32(rest, restSize < 32 ? restSize : 32);
  const __m256i back = restSize > 32 ? wide::loadUpTo32(rest + 32, restSize - 32) : _mm256_setzero_si256();
  const EncodedBlock block = encoded(front, back, set);
  out = wide::storeKept(out, block.bytes, wide::below(block.found, static_cast<unsigned>(left)));
  return static_cast<std::size_t>(out - bytes.data());
}

AVX2_FUNCTION void charsets::avx2::decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept {
  const bool isLatin1 = set.isLatin1();
  const SplitUnits characters = specialCharacters(set);
  const std::uint8_t* const in = bytes.data();
  char16_t* const out = text.data();
  const std::size_t count = bytes.size();
  if (count >= kVector) {
    for (std::size_t i = 0; i + kVector < count; i += kVector) {
      storeBlock(out + i, decoded(wide::load(in + i), characters, isLatin1));
    }
    const std::size_t last = count - kVector;  // some of it once more
    return storeBlock(out + last, decoded(wide::load(in + last), characters, isLatin1));
  }
  const DecodedBlock block = decoded(wide::loadUpTo32(in, count), characters, isLatin1);
  auto* const to = reinterpret_cast<std::uint8_t*>(out);
  wide::storeUpTo32(to, block.front, 2 * count);
  if (count > kVector / 2) wide::storeUpTo32(to + kVector, block.back, 2 * count - kVector);
}

#endif  // WIDE_AVX2

#include "bench/host/utf_blocks.h"

#ifdef WIDE_AVX2

#include <array>
#include <immintrin.h>

namespace {

/// Which bytes of a vector stay, moved together, and how many those are.
struct Shuffle {
  std::array<std::uint8_t, 16> bytes;
  std::uint8_t count;
};

/// For eight lanes of two bytes: a lane whose bit is set keeps its first byte alone.
constexpr std::array<Shuffle, 256> kTwoByteLanes = [] {
  std::array<Shuffle, 256> table{};
  for (unsigned mask = 0; mask < 256; ++mask) {
    Shuffle& shuffle = table[mask];
    shuffle.bytes.fill(0x80);
    for (unsigned lane = 0; lane < 8; ++lane) {
      shuffle.bytes[shuffle.count++] = static_cast<std::uint8_t>(2 * lane);
      if ((mask >> lane & 1) == 0) shuffle.bytes[shuffle.count++] = static_cast<std::uint8_t>(2 * lane + 1);
    }
  }
  return table;
}();

/// For four lanes of four bytes, of which the last is never used: bit i is set where lane i keeps one byte, bit i + 4
/// where it keeps two.
constexpr std::array<Shuffle, 256> kThreeByteLanes = [] {
  std::array<Shuffle, 256> table{};
  for (unsigned mask = 0; mask < 256; ++mask) {
    Shuffle& shuffle = table[mask];
    shuffle.bytes.fill(0x80);
    for (unsigned lane = 0; lane < 4; ++lane) {
      const unsigned length = (mask >> lane & 1) != 0 ? 1 : (mask >> (lane + 4) & 1) != 0 ? 2 : 3;
      for (unsigned i = 0; i < length; ++i) shuffle.bytes[shuffle.count++] = static_cast<std::uint8_t>(4 * lane + i);
    }
  }
  return table;
}();

AVX2_FUNCTION inline std::uint8_t* store(__m128i bytes, const Shuffle& shuffle, std::uint8_t* out) noexcept {
  const __m128i order = _mm_loadu_si128(reinterpret_cast<const __m128i*>(shuffle.bytes.data()));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(bytes, order));
  return out + shuffle.count;
}

/// One bit for each 16-bit lane.
AVX2_FUNCTION inline unsigned laneBits(__m128i lanes) noexcept {
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(lanes, _mm_setzero_si128())));
}

/// Eight units below U+0800.
AVX2_FUNCTION inline std::uint8_t* encodeNarrow(__m128i units, __m128i plain, std::uint8_t* out) noexcept {
  const __m128i lead = _mm_or_si128(_mm_srli_epi16(units, 6), _mm_set1_epi16(0xC0));
  const __m128i trail = _mm_or_si128(_mm_and_si128(units, _mm_set1_epi16(0x3F)), _mm_set1_epi16(0x80));
  const __m128i both = _mm_or_si128(lead, _mm_slli_epi16(trail, 8));
  return store(_mm_blendv_epi8(both, units, plain), kTwoByteLanes[laneBits(plain)], out);
}

/// Four units in 32-bit lanes.
AVX2_FUNCTION inline std::uint8_t* encodeFour(__m128i units, std::uint8_t* out) noexcept {
  const __m128i six = _mm_set1_epi32(0x3F);
  const __m128i trail = _mm_or_si128(_mm_and_si128(units, six), _mm_set1_epi32(0x80));
  const __m128i middle = _mm_or_si128(_mm_and_si128(_mm_srli_epi32(units, 6), six), _mm_set1_epi32(0x80));
  const __m128i three = _mm_or_si128(_mm_or_si128(_mm_srli_epi32(units, 12), _mm_set1_epi32(0xE0)),
                                     _mm_or_si128(_mm_slli_epi32(middle, 8), _mm_slli_epi32(trail, 16)));
  const __m128i lead = _mm_or_si128(_mm_srli_epi32(units, 6), _mm_set1_epi32(0xC0));
  const __m128i two = _mm_or_si128(lead, _mm_slli_epi32(trail, 8));
  const __m128i isOne = _mm_cmplt_epi32(units, _mm_set1_epi32(0x80));
  const __m128i isTwo = _mm_cmplt_epi32(units, _mm_set1_epi32(0x800));
  const __m128i bytes = _mm_blendv_epi8(_mm_blendv_epi8(three, two, isTwo), units, isOne);
  const auto ones = static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(isOne)));
  const auto twos = static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(isTwo)));
  return store(bytes, kThreeByteLanes[ones | (twos & ~ones) << 4], out);
}

AVX2_FUNCTION inline std::uint8_t* encodeUnits(__m128i units, std::uint8_t* out) noexcept {
  const __m128i zero = _mm_setzero_si128();
  const __m128i plain = _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80))), zero);
  const __m128i narrow = _mm_cmpeq_epi16(_mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800))), zero);
  if (laneBits(plain) == 0xFF) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(out), _mm_packus_epi16(units, units));
    return out + 8;
  }
  if (laneBits(narrow) == 0xFF) return encodeNarrow(units, plain, out);
  const __m128i top = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xF800)));
  if (laneBits(_mm_cmpeq_epi16(top, _mm_set1_epi16(static_cast<short>(0xD800)))) != 0) return nullptr;
  out = encodeFour(_mm_cvtepu16_epi32(units), out);
  return encodeFour(_mm_cvtepu16_epi32(_mm_srli_si128(units, 8)), out);
}

AVX2_FUNCTION inline __m128i load(const void* units) noexcept {
  return _mm_loadu_si128(static_cast<const __m128i*>(units));
}

/// Sixteen units of 7-bit text; false, with nothing written, where they aren't.
AVX2_FUNCTION inline bool packPlain(const char16_t* units, std::uint8_t* out) noexcept {
  const __m256i block = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(units));
  if (_mm256_testz_si256(block, _mm256_set1_epi16(static_cast<short>(0xFF80))) == 0) return false;
  const __m128i bytes = _mm_packus_epi16(_mm256_castsi256_si128(block), _mm256_extracti128_si256(block, 1));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(out), bytes);
  return true;
}

AVX2_FUNCTION inline bool packPlain(const char32_t* units, std::uint8_t* out) noexcept {
  const __m128i low = _mm_packus_epi32(load(units), load(units + 4));
  const __m128i high = _mm_packus_epi32(load(units + 8), load(units + 12));
  if (_mm_testz_si128(_mm_or_si128(low, high), _mm_set1_epi16(static_cast<short>(0xFF80))) == 0) return false;
  _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_packus_epi16(low, high));
  return true;
}

AVX2_FUNCTION inline std::uint8_t* encodeEight(const char16_t* units, std::uint8_t* out) noexcept {
  return encodeUnits(load(units), out);
}

AVX2_FUNCTION inline std::uint8_t* encodeEight(const char32_t* units, std::uint8_t* out) noexcept {
  const __m128i low = load(units);
  const __m128i high = load(units + 4);
  if (_mm_testz_si128(_mm_or_si128(low, high), _mm_set1_epi32(static_cast<int>(0xFFFF'0000))) == 0) return nullptr;
  return encodeUnits(_mm_packus_epi32(low, high), out);
}

template <typename Unit>
AVX2_FUNCTION inline lean::Run<Unit> encode(const Unit* in, const Unit* end, std::uint8_t* out) noexcept {
  while (end - in >= lean::kBlockRoom) {
    if (packPlain(in, out)) {
      in += 16;
      out += 16;
      continue;
    }
    std::uint8_t* const next = encodeEight(in, out);
    if (next == nullptr) break;
    in += 8;
    out = next;
  }
  return {in, out};
}

}  // namespace

AVX2_FUNCTION lean::Run<char16_t> lean::encodeRun(const char16_t* in, const char16_t* end, std::uint8_t* out) noexcept {
  return encode(in, end, out);
}

AVX2_FUNCTION lean::Run<char32_t> lean::encodeRun(const char32_t* in, const char32_t* end, std::uint8_t* out) noexcept {
  return encode(in, end, out);
}

#endif  // WIDE_AVX2

#include "wide/ascii_scan.h"

#ifdef WIDE_AVX2

#include <immintrin.h>

namespace {

AVX2_FUNCTION inline __m256i load(const std::uint8_t* bytes) noexcept {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
}

/// One bit for each of 32 bytes: set where the byte is 0x80 or above.
AVX2_FUNCTION inline unsigned highBits(const std::uint8_t* bytes) noexcept {
  return static_cast<unsigned>(_mm256_movemask_epi8(load(bytes)));
}

}  // namespace

/// @param bytes  at least 32
AVX2_FUNCTION std::size_t ascii::avx2::findNonAscii(ByteView bytes) noexcept {
  constexpr std::size_t kVector = 32;
  const std::uint8_t* const data = bytes.data();
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 4 * kVector; i += 4 * kVector) {
    const __m256i low = _mm256_or_si256(load(data + i), load(data + i + kVector));
    const __m256i high = _mm256_or_si256(load(data + i + 2 * kVector), load(data + i + 3 * kVector));
    if (_mm256_movemask_epi8(_mm256_or_si256(low, high)) != 0) break;
  }
  for (; size - i >= kVector; i += kVector) {
    const unsigned bits = highBits(data + i);
    if (bits != 0) return i + _tzcnt_u32(bits);
  }
  if (i == size) return size;
  const std::size_t last = size - kVector;  // overlaps what is known to be ASCII
  const unsigned bits = highBits(data + last);
  return bits != 0 ? last + _tzcnt_u32(bits) : size;
}

#endif  // WIDE_AVX2

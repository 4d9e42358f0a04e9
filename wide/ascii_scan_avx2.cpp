#include "wide/ascii_scan.h"
#include "wide/vectors.h"

#ifdef WIDE_AVX2

using wide::bits;
using wide::load;

/// @param bytes  at least 32
AVX2_FUNCTION std::size_t ascii::avx2::findNonAscii(ByteView bytes) noexcept {
  constexpr std::size_t kVector = wide::kVector;
  const std::uint8_t* const data = bytes.data();
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 4 * kVector; i += 4 * kVector) {
    const __m256i low = _mm256_or_si256(load(data + i), load(data + i + kVector));
    const __m256i high = _mm256_or_si256(load(data + i + 2 * kVector), load(data + i + 3 * kVector));
    if (bits(_mm256_or_si256(low, high)) != 0) break;
  }
  for (; size - i >= kVector; i += kVector) {
    const std::uint32_t high = bits(load(data + i));
    if (high != 0) return i + _tzcnt_u32(high);
  }
  if (i == size) return size;
  const std::size_t last = size - kVector;  // overlaps what is known to be ASCII
  const std::uint32_t high = bits(load(data + last));
  return high != 0 ? last + _tzcnt_u32(high) : size;
}

#endif  // WIDE_AVX2

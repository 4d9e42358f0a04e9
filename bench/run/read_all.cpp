#include "bench/run/read_all.h"

#include <cstring>

#include "wide/cpu.h"

#ifdef WIDE_AVX2
#include <immintrin.h>
#endif

namespace {

std::uint64_t readPlainly(const std::uint8_t* bytes, std::size_t size) noexcept {
  std::uint64_t all = 0;
  std::size_t i = 0;
  for (std::uint64_t word = 0; size - i >= sizeof word; i += sizeof word) {
    std::memcpy(&word, bytes + i, sizeof word);
    all |= word;
  }
  for (; i < size; ++i) all |= bytes[i];
  return all;
}

#ifdef WIDE_AVX2
AVX2_FUNCTION std::uint64_t readBlocks(const std::uint8_t* bytes, std::size_t blockCount) noexcept {
  __m256i all[4] = {};
  for (std::size_t i = 0; i < blockCount; ++i) {
    const auto* const block = reinterpret_cast<const __m256i*>(bytes + 128 * i);
    all[0] = _mm256_or_si256(all[0], _mm256_loadu_si256(block));
    all[1] = _mm256_or_si256(all[1], _mm256_loadu_si256(block + 1));
    all[2] = _mm256_or_si256(all[2], _mm256_loadu_si256(block + 2));
    all[3] = _mm256_or_si256(all[3], _mm256_loadu_si256(block + 3));
  }
  const __m256i any = _mm256_or_si256(_mm256_or_si256(all[0], all[1]), _mm256_or_si256(all[2], all[3]));
  return static_cast<std::uint64_t>(_mm256_movemask_epi8(any));
}
#endif

}  // namespace

std::uint64_t readAll(ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) {
    const std::size_t blockCount = bytes.size() / 128;
    return readBlocks(bytes.data(), blockCount) | readPlainly(bytes.data() + 128 * blockCount, bytes.size() % 128);
  }
#endif
  return readPlainly(bytes.data(), bytes.size());
}

/// The bitwise operations in vectors of 32 bytes.
#include "bytes/bitwise.h"

#ifdef WIDE_AVX2

#include "wide/vectors.h"

namespace bitwise {
namespace {

template <Operation kOperation>
AVX2_FUNCTION inline __m256i combined(const std::uint8_t* data, const std::uint8_t* mask, __m256i positions) noexcept {
  const __m256i bytes = wide::load(data);
  const __m256i partners = wide::load(mask);
  if constexpr (kOperation == Operation::kAnd) return _mm256_and_si256(bytes, partners);
  if constexpr (kOperation == Operation::kOr) return _mm256_or_si256(bytes, partners);
  if constexpr (kOperation == Operation::kXor) return _mm256_xor_si256(bytes, partners);
  return _mm256_xor_si256(_mm256_xor_si256(bytes, partners), positions);
}

template <Operation kOperation>
AVX2_FUNCTION void combineAs(ByteView data, RepeatingMask mask, std::size_t position, std::uint8_t* result) noexcept {
  constexpr std::size_t kStep = RepeatingMask::kSlack;
  static_assert(kStep == 128);
  const std::uint8_t* const bytes = data.data();
  const std::size_t length = data.size();
  const __m256i next = wide::all(wide::kVector);
  __m256i positions = _mm256_add_epi8(wide::all(static_cast<std::uint8_t>(position)),
                                      _mm256_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18,
                                                       19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31));
  std::size_t i = 0;
  std::size_t k = 0;
  for (; i + kStep <= length; i += kStep) {
    for (std::size_t j = 0; j < kStep; j += 32) {
      wide::store(result + i + j, combined<kOperation>(bytes + i + j, mask.bytes + k + j, positions));
      positions = _mm256_add_epi8(positions, next);
    }
    k += kStep;
    k = k >= mask.period ? k - mask.period : k;
  }
  for (; i + 32 <= length; i += 32) {
    wide::store(result + i, combined<kOperation>(bytes + i, mask.bytes + k, positions));
    positions = _mm256_add_epi8(positions, next);
    k += 32;
  }
  // Fewer than `kStep` bytes came since the mask was last wrapped, so it need not wrap in the rest.
  scalar::combine(kOperation, data.subspan(i), {mask.bytes + k, mask.period}, position + i, result + i);
}

}  // namespace

void avx2::combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
                   std::uint8_t* result) noexcept {
  switch (operation) {
    case Operation::kAnd:
      return combineAs<Operation::kAnd>(data, mask, position, result);
    case Operation::kOr:
      return combineAs<Operation::kOr>(data, mask, position, result);
    case Operation::kXor:
      return combineAs<Operation::kXor>(data, mask, position, result);
    case Operation::kXorPosition:
      return combineAs<Operation::kXorPosition>(data, mask, position, result);
  }
}

}  // namespace bitwise

#endif  // WIDE_AVX2

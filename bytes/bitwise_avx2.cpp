/// The bitwise operations in vectors of 32 bytes.
#include "bytes/bitwise.h"

#ifdef WIDE_AVX2

#include <array>

#include "wide/partial_vector.h"
#include "wide/vectors.h"

namespace bitwise {
namespace {

using Row = std::array<std::uint8_t, wide::kVector>;

/// The numbers from 0 on, each modulo a length; those of length n in row n - 1.
constexpr std::array<Row, avx2::kBriefMask> kCounted = [] {
  std::array<Row, avx2::kBriefMask> rows{};
  for (std::size_t length = 1; length <= rows.size(); ++length) {
    for (std::size_t i = 0; i < rows[0].size(); ++i) rows[length - 1][i] = static_cast<std::uint8_t>(i % length);
  }
  return rows;
}();

template <Operation kOperation>
AVX2_FUNCTION inline __m256i combined(__m256i bytes, __m256i partners, __m256i positions) noexcept {
  if constexpr (kOperation == Operation::kAnd) return _mm256_and_si256(bytes, partners);
  if constexpr (kOperation == Operation::kOr) return _mm256_or_si256(bytes, partners);
  if constexpr (kOperation == Operation::kXor) return _mm256_xor_si256(bytes, partners);
  return _mm256_xor_si256(_mm256_xor_si256(bytes, partners), positions);
}

template <Operation kOperation>
AVX2_FUNCTION void combineAs(ByteView data, RepeatingMask mask, std::size_t position, std::uint8_t* result) noexcept {
  constexpr std::size_t kVector = wide::kVector;
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
    for (std::size_t j = 0; j < kStep; j += kVector) {
      const __m256i partners = wide::load(mask.bytes + k + j);
      wide::store(result + i + j, combined<kOperation>(wide::load(bytes + i + j), partners, positions));
      positions = _mm256_add_epi8(positions, next);
    }
    k += kStep;
    k = k >= mask.period ? k - mask.period : k;
  }
  // Fewer than `kStep` bytes come now, so the mask need not be wrapped again.
  for (; i + kVector <= length; i += kVector, k += kVector) {
    wide::store(result + i, combined<kOperation>(wide::load(bytes + i), wide::load(mask.bytes + k), positions));
    positions = _mm256_add_epi8(positions, next);
  }
  const std::size_t left = length - i;
  if (left == 0) return;
  const __m256i partners = wide::loadUpTo32(mask.bytes + k, left);
  wide::storeUpTo32(result + i, combined<kOperation>(wide::loadUpTo32(bytes + i, left), partners, positions), left);
}

}  // namespace

void avx2::combine(Operation operation, ByteView data, RepeatingMask mask, std::size_t position,
                   std::uint8_t* result) noexcept {
  static constexpr OperationKernel* kKernels[] = {combineAs<Operation::kAnd>, combineAs<Operation::kOr>,
                                                  combineAs<Operation::kXor>, combineAs<Operation::kXorPosition>};
  kKernels[static_cast<std::size_t>(operation)](data, mask, position, result);
}

AVX2_FUNCTION void avx2::repeatBrief(ByteView mask, std::size_t start, std::uint8_t* to) noexcept {
  const std::size_t length = mask.size();
  const __m128i bytes = length < kBriefMask ? wide::loadBelow16(mask.data(), length)
                                            : _mm_loadu_si128(reinterpret_cast<const __m128i*>(mask.data()));
  const __m256i fromStart =
      _mm256_add_epi8(wide::load(kCounted[length - 1].data()), wide::all(static_cast<std::uint8_t>(start)));
  const __m256i lengths = wide::all(static_cast<std::uint8_t>(length));
  const __m256i below = _mm256_cmpgt_epi8(lengths, fromStart);
  const __m256i places = _mm256_sub_epi8(fromStart, _mm256_andnot_si256(below, lengths));
  wide::store(to, _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(bytes), places));
}

}  // namespace bitwise

#endif  // WIDE_AVX2

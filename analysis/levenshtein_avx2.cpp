/// The matrix of edit distances in vectors of four words.
#include "analysis/levenshtein_bands.h"

#ifdef WIDE_AVX2

#include <immintrin.h>

namespace levenshtein {
namespace {

/// Words of rows in a vector.
constexpr std::size_t kWords = 4;

AVX2_FUNCTION inline __m256i loadMask(const std::uint64_t* mask) noexcept {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(mask));
}

/// A bit that comes in from the band above, in the first lane.
AVX2_FUNCTION inline __m256i firstLane(std::uint32_t bit) noexcept {
  return _mm256_zextsi128_si256(_mm_cvtsi32_si128(static_cast<int>(bit)));
}

AVX2_FUNCTION inline std::uint32_t firstLaneOf(__m256i bits) noexcept {
  return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm256_castsi256_si128(bits)));
}

/// The top bit of each lane as the lowest one of the next; that of the last lane is in the first.
AVX2_FUNCTION inline __m256i topBitsMovedOn(__m256i lanes) noexcept {
  return _mm256_srli_epi64(_mm256_permute4x64_epi64(lanes, _MM_SHUFFLE(2, 1, 0, 3)), 63);
}

AVX2_FUNCTION inline __m256i withFirstLane(__m256i lanes, std::uint32_t bit) noexcept {
  return _mm256_blend_epi32(lanes, firstLane(bit), 0x03);
}

AVX2_FUNCTION inline __m256i shiftedIn(__m256i lanes, __m256i bits) noexcept {
  return _mm256_or_si256(_mm256_slli_epi64(lanes, 1), bits);
}

/// Four words of rows, each one column behind the word above it, so that what crosses between them was computed in
/// the step before.
struct Wavefront {
  __m256i VP;
  __m256i VN;
  __m256i D0;
  __m256i PMbefore;
  __m256i notHp;  ///< carries out of each word, moved on to the next
  __m256i hn;
  __m256i tr;

  [[gnu::always_inline]] AVX2_FUNCTION inline void step(__m256i PM, Carry in) noexcept {
    const __m256i notHpIn = withFirstLane(notHp, in.notHp);
    const __m256i hnIn = withFirstLane(hn, in.hn);
    const __m256i trIn = withFirstLane(tr, in.tr);
    const __m256i swappable = _mm256_andnot_si256(D0, PM);
    const __m256i TR = _mm256_and_si256(shiftedIn(swappable, trIn), PMbefore);
    const __m256i X = _mm256_or_si256(PM, hnIn);
    const __m256i unchained = _mm256_or_si256(_mm256_or_si256(VN, TR), X);
    const __m256i sum = _mm256_add_epi64(_mm256_and_si256(X, VP), VP);
    D0 = _mm256_or_si256(_mm256_xor_si256(sum, VP), unchained);
    const __m256i notHP = _mm256_andnot_si256(VN, _mm256_or_si256(sum, _mm256_or_si256(VP, unchained)));
    const __m256i HN = _mm256_and_si256(D0, VP);
    notHp = topBitsMovedOn(notHP);
    hn = topBitsMovedOn(HN);
    tr = topBitsMovedOn(swappable);
    const __m256i notHPbelow = shiftedIn(notHP, notHpIn);
    VP = _mm256_or_si256(shiftedIn(HN, hnIn), _mm256_andnot_si256(D0, notHPbelow));
    VN = _mm256_andnot_si256(notHPbelow, D0);
    PMbefore = PM;
  }

  AVX2_FUNCTION inline Carry carryOut() const noexcept {
    return {firstLaneOf(notHp), firstLaneOf(hn), firstLaneOf(tr)};
  }
};

/// VP at the left border: the distance grows by one from row to row, but not in the missing rows that come first.
AVX2_FUNCTION inline __m256i firstColumn(std::size_t padding) noexcept {
  std::uint64_t words[kWords];
  for (std::size_t word = 0; word < kWords; ++word) {
    const std::size_t missing = padding - std::min(padding, 64 * word);
    words[word] = missing < 64 ? ~std::uint64_t{0} << missing : 0;
  }
  return loadMask(words);
}

/// A band of rows on its way through the columns.
class Band {
 public:
  AVX2_FUNCTION Band(const Matrix& matrix, const std::uint64_t* masks, std::size_t padding) noexcept
      : symbols_(matrix.columns.data()), masks_(masks), carries_(matrix.carries), start_(firstColumn(padding)) {
    const __m256i zero = _mm256_setzero_si256();
    front_ = {start_, zero, zero, zero, zero, zero, zero};
    before1_ = before2_ = before3_ = zero;
  }

  /// Takes the first word of rows to column `step`, and those below it to the columns before.
  [[gnu::always_inline]] AVX2_FUNCTION inline void advance(std::size_t step) noexcept {
    const __m256i newest = loadMask(masks_ + symbols_[step] * kWords);
    const __m256i PM = _mm256_blend_epi32(_mm256_blend_epi32(newest, before1_, 0x0C),
                                          _mm256_blend_epi32(before2_, before3_, 0xC0), 0xF0);
    before3_ = before2_;
    before2_ = before1_;
    before1_ = newest;
    front_.step(PM, carries_[step]);
    if (step < Matrix::kOverrun) {
      // Words that have not come to the first column stay as they are.
      const __m256i waiting =
          _mm256_cmpgt_epi64(_mm256_setr_epi64x(0, 1, 2, 3), _mm256_set1_epi64x(static_cast<long long>(step)));
      front_.VP = _mm256_blendv_epi8(front_.VP, start_, waiting);
    } else {
      carries_[step - Matrix::kOverrun] = front_.carryOut();
    }
  }

 private:
  const Symbol* symbols_;
  const std::uint64_t* masks_;
  Carry* carries_;
  __m256i start_;
  Wavefront front_;
  __m256i before1_;  ///< masks of the last columns, of which each word of rows takes its own
  __m256i before2_;
  __m256i before3_;
};

AVX2_FUNCTION void sweepOne(const Matrix& matrix, std::size_t padding) noexcept {
  Band band(matrix, matrix.masks, padding);
  const std::size_t steps = matrix.columns.size() + Matrix::kOverrun;
  for (std::size_t step = 0; step < steps; ++step) band.advance(step);
}

/// Two bands in turn: neither waits for its own last step. The lower one keeps far enough behind to find its carries.
AVX2_FUNCTION void sweepTwo(const Matrix& matrix, std::size_t padding) noexcept {
  const std::size_t steps = matrix.columns.size() + Matrix::kOverrun;
  const std::size_t lag = std::min<std::size_t>(8, steps);
  Band upper(matrix, matrix.masks, padding);
  Band lower(matrix, matrix.masks + matrix.symbolCount * kWords, 0);
  for (std::size_t step = 0; step < lag; ++step) upper.advance(step);
  for (std::size_t step = lag; step < steps; ++step) {
    upper.advance(step);
    lower.advance(step - lag);
  }
  for (std::size_t step = steps - lag; step < steps; ++step) lower.advance(step);
}

AVX2_FUNCTION void sweepBands(const Matrix& matrix, std::size_t bands, std::size_t padding) noexcept {
  return bands == 1 ? sweepOne(matrix, padding) : sweepTwo(matrix, padding);
}

}  // namespace

std::int64_t avx2::corner(const Matrix& matrix) noexcept { return sweep<kWords, 2>(matrix, sweepBands); }

}  // namespace levenshtein

#endif  // WIDE_AVX2

/// yEnc in vectors of 32 bytes.
#include "codecs/escape_pairs.h"
#include "codecs/yenc.h"
#include "wide/compaction.h"
#include "wide/vectors.h"

#ifdef WIDE_AVX2

namespace {

using wide::all;
using wide::kVector;
using wide::load;

/// What is taken off each byte, read from one byte earlier when the byte before the vector was an escaping "=".
constexpr auto kShifts = [] {
  std::array<std::uint8_t, kVector + 1> shifts{};
  shifts.fill(yenc::kShift);
  shifts[0] = yenc::kShift + yenc::kEscapedShift;
  return shifts;
}();

/// Read from 32 - p on: high bits from byte p on, and at p itself the bit of the escaped shift as well.
constexpr auto kFrom = [] {
  std::array<std::uint8_t, 2 * kVector + 1> from{};
  for (unsigned i = kVector; i < from.size(); ++i) from[i] = 0x80;
  from[kVector] |= yenc::kEscapedShift;
  return from;
}();

/// Decodes a vector with at most two escapes that are not adjacent: what follows an "=" moves one byte down, what
/// follows the second one two. Reads two bytes more than the vector.
/// @param escapes  the positions of "="
/// @param carried  1 when the first byte is escaped, else 0
AVX2_FUNCTION inline void decodeFew(const std::uint8_t* in, std::uint32_t escapes, std::uint32_t carried,
                                    std::uint8_t* out) noexcept {
  const unsigned first = _tzcnt_u32(escapes);
  const unsigned second = _tzcnt_u32(_blsr_u32(escapes)) + (escapes == 0);  // beyond the vector when there is none
  const __m256i fromFirst = load(kFrom.data() + kVector - first);
  const __m256i fromSecond = load(kFrom.data() + kVector + 1 - second);
  __m256i bytes = _mm256_blendv_epi8(load(in), load(in + 1), fromFirst);
  bytes = _mm256_blendv_epi8(bytes, load(in + 2), fromSecond);
  const __m256i escaped = _mm256_and_si256(_mm256_or_si256(fromFirst, fromSecond), all(yenc::kEscapedShift));
  const __m256i shifts = _mm256_add_epi8(load(kShifts.data() + 1 - carried), escaped);
  wide::store(out, _mm256_sub_epi8(bytes, shifts));
}

}  // namespace

AVX2_FUNCTION std::size_t yenc::avx2::decode(ByteView data, ByteSpan bytes) noexcept {
  const std::uint8_t* in = data.data();
  const std::uint8_t* const end = in + data.size();
  std::uint8_t* out = bytes.data();
  std::uint32_t carried = 0;
  while (end - in >= kVector + 2) {
    const __m256i vector = load(in);
    const std::uint32_t marks = wide::bits(_mm256_cmpeq_epi8(vector, all(kEscape)));
    const std::uint32_t third = _blsr_u32(_blsr_u32(marks));
    const std::uint32_t adjacent = marks & (marks << 1 | carried);
    if ((third | adjacent) == 0) {
      decodeFew(in, marks, carried, out);
      out += kVector - _mm_popcnt_u32(marks);
      carried = marks >> 31;
    } else {
      const EscapePairs<std::uint32_t> escapes = pairedOff(marks, carried);
      const __m256i escaped = _mm256_and_si256(wide::bytesOfBits(escapes.escaped), all(kEscapedShift));
      const __m256i shifted = _mm256_sub_epi8(vector, _mm256_add_epi8(escaped, all(kShift)));
      out = wide::storeKept(out, shifted, ~escapes.escaping);
      carried = escapes.escaping >> 31;
    }
    in += kVector;
  }
  in -= carried;  // the "=" of a pair that is cut goes with what follows
  const auto done = static_cast<std::size_t>(out - bytes.data());
  return done + scalar::decode({in, end}, bytes.subspan(done));
}

#endif  // WIDE_AVX2

/// The subject encoder in vectors of 32 bytes.
#include "codecs/email_subject.h"

#ifdef WIDE_AVX2

#include "codecs/email_subject_escapes_avx2.h"
#include "codecs/hex_escapes_avx2.h"

namespace {

using wide::all;
using wide::kVector;
using wide::load;

/// The bytes that are not plain: below 0x20, and from 0x80 on, which is below it as a signed number.
AVX2_FUNCTION inline std::uint32_t notPlain(__m256i bytes) noexcept {
  return wide::bits(_mm256_cmpgt_epi8(all(0x20), bytes));
}

}  // namespace

/// @param text  at least 32 bytes
AVX2_FUNCTION std::size_t email_subject::avx2::findNotPlain(ByteView text) noexcept {
  const std::size_t last = text.size() - kVector;
  for (std::size_t i = 0; i < last; i += kVector) {
    const std::uint32_t found = notPlain(load(text.data() + i));
    if (found != 0) return i + _tzcnt_u32(found);
  }
  const std::uint32_t found = notPlain(load(text.data() + last));  // overlaps what is known to be plain
  return last + _tzcnt_u32(found);
}

AVX2_FUNCTION std::size_t email_subject::avx2::countEscapes(ByteView text) noexcept {
  std::size_t count = 0;
  std::size_t i = 0;
  for (; text.size() - i >= kVector; i += kVector) {
    count += static_cast<std::size_t>(_mm_popcnt_u32(escapes(load(text.data() + i))));
  }
  return count + scalar::countEscapes(text.subspan(i));
}

AVX2_FUNCTION std::uint8_t* email_subject::avx2::encode(ByteView text, std::uint8_t* out) noexcept {
  std::size_t i = 0;
  for (; text.size() - i >= kVector; i += kVector) {
    const __m256i bytes = load(text.data() + i);
    const __m256i characters = charactersOf(bytes);
    const std::uint32_t escaped = escapes(bytes);
    if (escaped == 0) {
      wide::store(out, characters);
    } else {
      ::avx2::storeEscaped(out, bytes, characters, escaped);
    }
    out += kVector + 2 * _mm_popcnt_u32(escaped);
  }
  return scalar::encode(text.subspan(i), out);
}

#endif  // WIDE_AVX2

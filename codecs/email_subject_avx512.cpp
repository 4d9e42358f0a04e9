/// The subject encoder for long texts, with escapes in vectors of 64 bytes.
#include "codecs/email_subject.h"

#ifdef WIDE_AVX512

#include "codecs/email_subject_escapes_avx2.h"
#include "codecs/hex_escapes_avx512.h"

AVX512_FUNCTION std::uint8_t* email_subject::avx512::encode(ByteView text, std::uint8_t* out) noexcept {
  constexpr std::size_t kVector = wide::kVector;
  std::size_t i = 0;
  // What is touched beyond a vector's text is written by the bytes after it.
  for (; text.size() - i >= kVector + ::avx512::kEscapeReach; i += kVector) {
    const __m256i bytes = wide::load(text.data() + i);
    const __m256i characters = avx2::charactersOf(bytes);
    const std::uint32_t escaped = avx2::escapes(bytes);
    if (escaped == 0) {
      wide::store(out, characters);
      out += kVector;
    } else {
      out = ::avx512::storeEscaped(out, bytes, characters, escaped, '=');
    }
  }
  return avx2::encode(text.subspan(i), out);
}

#endif  // WIDE_AVX512

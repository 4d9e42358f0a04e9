/// The plain form of percent-encoding, and the choice between the forms.
#include "codecs/url.h"

#include "codecs/hex_digits.h"
#include "codecs/url_characters.h"
#include "wide/byte_word.h"

namespace {

/// From this many bytes on the widest registers win.
constexpr std::size_t kAvx512From = 128;

/// The byte that the escape at `in` stands for, read no further than `end`.
std::uint8_t escapedByte(const std::uint8_t* in, const std::uint8_t* end) noexcept {
  const std::uint8_t high = end - in > 1 ? in[1] : 0;
  const std::uint8_t low = end - in > 2 ? in[2] : 0;
  return hexByte(high, low);
}

}  // namespace

std::size_t url::scalar::encode(ByteView bytes, Options options, ByteSpan text) noexcept {
  const auto& written = kCharacters[options.index()].written;
  std::uint8_t* out = text.data();
  for (const std::uint8_t byte : bytes) out = append(out, written[byte]);
  return static_cast<std::size_t>(out - text.data());
}

std::size_t url::scalar::decode(ByteView text, Options options, ByteSpan bytes) noexcept {
  const std::uint8_t plus = options.readsPlusAsSpace() ? ' ' : '+';
  const std::uint8_t* in = text.data();
  const std::uint8_t* const end = in + text.size();
  std::uint8_t* out = bytes.data();
  while (in != end) {
    if (static_cast<std::size_t>(end - in) >= byte_word::kSize) {
      const std::uint64_t word = byte_word::load(in);
      const std::size_t run = byte_word::find(word, kEscape);
      byte_word::store(out, byte_word::replaced(word, '+', plus));
      in += run;
      out += run;
      if (run == byte_word::kSize) continue;
    }
    if (*in == kEscape) {
      *out++ = escapedByte(in, end);
      in += end - in < 3 ? end - in : 3;
    } else {
      *out++ = *in == '+' ? plus : *in;
      ++in;
    }
  }
  return static_cast<std::size_t>(out - bytes.data());
}

std::size_t url::encode(ByteView bytes, Options options, ByteSpan text) noexcept {
#ifdef WIDE_AVX512
  if (bytes.size() >= kAvx512From && cpu::hasAvx512()) return avx512::encode(bytes, options, text);
#endif
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::encode(bytes, options, text);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::encode(bytes, options, text);
#endif
  return scalar::encode(bytes, options, text);
}

std::size_t url::decode(ByteView text, Options options, ByteSpan bytes) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::decode(text, options, bytes);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::decode(text, options, bytes);
#endif
  return scalar::decode(text, options, bytes);
}

/// The plain form of the yEnc decoder, and the choice between the forms.
#include "codecs/yenc.h"

#include "wide/byte_word.h"

namespace {

/// From this many bytes on the wide registers win.
constexpr std::size_t kAvx2From = 64;
constexpr std::size_t kAvx512From = 32;

constexpr std::ptrdiff_t kWord = 8;

/// Takes the shift off eight bytes; the high bits are kept out of it, so that nothing is borrowed across bytes.
std::uint64_t unshifted(std::uint64_t word) noexcept {
  return ((word | byte_word::kHighBits) - byte_word::kOnes * yenc::kShift) ^ (~word & byte_word::kHighBits);
}

}  // namespace

std::size_t yenc::decode(ByteView data, ByteSpan bytes) noexcept {
#ifdef WIDE_AVX512
  if (data.size() >= kAvx512From && cpu::hasAvx512()) return avx512::decode(data, bytes);
#endif
#ifdef WIDE_AVX2
  if (data.size() >= kAvx2From && cpu::hasAvx2()) return avx2::decode(data, bytes);
#endif
#ifdef WIDE_NEON
  if (data.size() >= kAvx2From && cpu::hasNeon()) return neon::decode(data, bytes);
#endif
  return scalar::decode(data, bytes);
}

std::size_t yenc::scalar::decode(ByteView data, ByteSpan bytes) noexcept {
  const std::uint8_t* in = data.data();
  const std::uint8_t* const end = in + data.size();
  std::uint8_t* out = bytes.data();
  while (in != end) {
    const std::uint8_t* stop = end;
    if (end - in >= kWord) {
      const std::uint64_t word = byte_word::load(in);
      if (!byte_word::contains(word, kEscape)) {
        byte_word::store(out, unshifted(word));
        in += kWord;
        out += kWord;
        continue;
      }
      stop = in + kWord;
    }
    while (in < stop) {
      std::uint8_t byte = *in++;
      if (byte == kEscape) byte = static_cast<std::uint8_t>((in != end ? *in++ : 0) - kEscapedShift);
      *out++ = static_cast<std::uint8_t>(byte - kShift);
    }
  }
  return static_cast<std::size_t>(out - bytes.data());
}

/// The plain form of MySQL unescaping, and the choice between the forms.
#include "codecs/mysql.h"

#include <array>

#include "wide/byte_word.h"

namespace {

constexpr std::uint8_t kEscape = '\\';

constexpr std::array<std::int16_t, 256> kUnescaped = [] {
  std::array<std::int16_t, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    table[byte] = static_cast<std::int16_t>(mysql::unescaped(static_cast<std::uint8_t>(byte)));
  }
  return table;
}();

}  // namespace

std::size_t mysql::scalar::decode(ByteView text, ByteSpan bytes) noexcept {
  const std::uint8_t* in = text.data();
  const std::uint8_t* const end = in + text.size();
  std::uint8_t* out = bytes.data();
  while (in != end) {
    if (static_cast<std::size_t>(end - in) >= byte_word::kSize) {
      const std::uint64_t word = byte_word::load(in);
      const std::size_t run = byte_word::find(word, kEscape);
      byte_word::store(out, word);
      in += run;
      out += run;
      if (run == byte_word::kSize) continue;
    }
    const std::uint8_t byte = *in++;
    if (byte != kEscape || in == end) {
      *out++ = byte;
      continue;
    }
    const std::uint8_t second = *in++;
    const int meant = kUnescaped[second];
    if (meant < 0) *out++ = byte;
    *out++ = meant < 0 ? second : static_cast<std::uint8_t>(meant);
  }
  return static_cast<std::size_t>(out - bytes.data());
}

std::size_t mysql::decode(ByteView text, ByteSpan bytes) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::decode(text, bytes);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::decode(text, bytes);
#endif
  return scalar::decode(text, bytes);
}

/// The plain forms of quoted-printable, and the choice between the forms.
#include "codecs/quoted_printable.h"

#include <algorithm>

#include "codecs/hex_escapes.h"
#include "codecs/quoted_printable_encoder.h"
#include "wide/byte_word.h"

namespace {

using quoted_printable::isBlank;
using quoted_printable::isLineBreak;

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 32;

/// What is written for each byte inside a line; nothing for line breaks, which end it.
constexpr std::array<EscapedByte, 256> kWritten = [] {
  std::array<EscapedByte, 256> written{};
  for (unsigned value = 0; value < written.size(); ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    const bool isPrintable = byte >= 0x21 && byte <= 0x7E && byte != '=';
    if (!isLineBreak(byte)) written[byte] = isPrintable || isBlank(byte) ? literal(byte) : hexEscape(byte);
  }
  return written;
}();

constexpr bool isDigit(std::uint8_t byte) noexcept { return kHexValues[byte] != 0 || byte == '0'; }

constexpr bool isSpecial(std::uint8_t byte) noexcept { return byte == '=' || isLineBreak(byte); }

constexpr bool hasSpecial(std::uint64_t word) noexcept {
  return byte_word::contains(word, '=') || byte_word::contains(word, '\r') || byte_word::contains(word, '\n');
}

}  // namespace

bool quoted_printable::encode(ByteView bytes, std::int32_t lineLimit, OutputBuffer& text) noexcept {
  const bool mayBeTooLong = EncodeData::sizeBound(std::ssize(bytes)) > kMaxSize;
  if (mayBeTooLong && EncodeData(bytes, lineLimit).measure() > kMaxSize) return false;
  return EncodeData(bytes, lineLimit).encodeTo(text);
}

std::size_t quoted_printable::decode(ByteView text, ByteSpan bytes) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::decode(text, bytes);
#endif
#ifdef WIDE_NEON
  if (text.size() >= kWideFrom && cpu::hasNeon()) return neon::decode(text, bytes);
#endif
  return scalar::decode(text, bytes);
}

quoted_printable::Progress quoted_printable::escape(ByteView bytes, std::size_t limit, std::uint8_t* out) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= kWideFrom && cpu::hasAvx2()) return avx2::escape(bytes, limit, out);
#endif
#ifdef WIDE_NEON
  if (bytes.size() >= kWideFrom && cpu::hasNeon()) return neon::escape(bytes, limit, out);
#endif
  return scalar::escape(bytes, limit, out);
}

quoted_printable::Progress quoted_printable::scalar::escape(ByteView bytes, std::size_t limit,
                                                            std::uint8_t* out) noexcept {
  const std::uint8_t* in = bytes.data();
  const std::uint8_t* const end = in + std::min(bytes.size(), limit);
  for (; in != end; ++in) {
    const EscapedByte written = kWritten[*in];
    if (written.length == 0) break;
    out = append(out, written);
  }
  return {in, out};
}

std::size_t quoted_printable::scalar::decode(ByteView text, ByteSpan bytes) noexcept {
  constexpr std::ptrdiff_t kWord = 8;
  const std::uint8_t* const end = text.data() + text.size();
  Progress at{text.data(), bytes.data()};
  while (at.in != end) {
    while (end - at.in >= kWord) {
      const std::uint64_t word = byte_word::load(at.in);
      if (hasSpecial(word)) break;
      byte_word::store(at.out, word);
      at = {at.in + kWord, at.out + kWord};
    }
    while (at.in != end && !isSpecial(*at.in)) *at.out++ = *at.in++;
    if (at.in != end) at = decodeSpecial(at, end);
  }
  return static_cast<std::size_t>(at.out - bytes.data());
}

quoted_printable::Progress quoted_printable::scalar::decodeSpecial(Progress at, const std::uint8_t* end) noexcept {
  auto [in, out] = at;
  if (*in != '=') {
    *out++ = '\n';
    return {lineBreakEnd(in, end), out};
  }
  if (++in == end) return {in, out};
  if (isLineBreak(*in) || isBlank(*in)) {
    in = std::find_if(in, end, isLineBreak);
    return {in != end ? lineBreakEnd(in, end) : end, out};
  }
  const std::uint8_t high = *in++;
  if (in == end) return {in, out};
  const std::uint8_t low = *in++;
  if (isDigit(high) && isDigit(low)) *out++ = hexByte(high, low);
  return {in, out};
}

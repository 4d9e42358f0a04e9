/// The plain form of the subject encoder, and the choice between the forms.
#include "codecs/email_subject.h"

#include <cstring>

#include "codecs/hex_escapes.h"
#include "memory/wrapping.h"
#include "wide/byte_word.h"

namespace {

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 32;

/// From this many on the widest do.
constexpr std::size_t kAvx512From = 128;

constexpr bool isWide(std::size_t size) noexcept { return size >= kWideFrom; }

constexpr std::array<EscapedByte, 256> kWritten = [] {
  std::array<EscapedByte, 256> written{};
  for (unsigned value = 0; value < written.size(); ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    const bool isEscaped = byte == '=' || byte == '_' || byte >= 0x80;
    written[byte] = isEscaped ? hexEscape(byte) : literal(byte);
  }
  written[' '] = literal('_');
  return written;
}();

constexpr std::int64_t kFrameSize = sizeof email_subject::kOpening - 1 + sizeof email_subject::kClosing - 1;

/// Room for the encoded word of a text: what is known to do when little is asked for, else the very size.
std::int64_t roomFor(ByteView text) noexcept {
  const std::int64_t bound = std::int64_t{3} * std::ssize(text) + kFrameSize + kEscapeOverrun;
  return bound <= OutputBuffer::kInlineSize ? bound : email_subject::encodedSize(text) + kEscapeOverrun;
}

std::size_t countEscapes(ByteView text) noexcept {
#ifdef WIDE_AVX2
  if (isWide(text.size()) && cpu::hasAvx2()) return email_subject::avx2::countEscapes(text);
#endif
#ifdef WIDE_NEON
  if (isWide(text.size()) && cpu::hasNeon()) return email_subject::neon::countEscapes(text);
#endif
  return email_subject::scalar::countEscapes(text);
}

std::uint8_t* encodeText(ByteView text, std::uint8_t* out) noexcept {
#ifdef WIDE_AVX512
  if (text.size() >= kAvx512From && cpu::hasAvx512()) return email_subject::avx512::encode(text, out);
#endif
#ifdef WIDE_AVX2
  if (isWide(text.size()) && cpu::hasAvx2()) return email_subject::avx2::encode(text, out);
#endif
#ifdef WIDE_NEON
  if (isWide(text.size()) && cpu::hasNeon()) return email_subject::neon::encode(text, out);
#endif
  return email_subject::scalar::encode(text, out);
}

template <std::size_t kSize>
std::uint8_t* append(std::uint8_t* out, const char (&text)[kSize]) noexcept {
  std::memcpy(out, text, kSize - 1);
  return out + kSize - 1;
}

}  // namespace

std::size_t email_subject::findNotPlain(ByteView text) noexcept {
#ifdef WIDE_AVX2
  if (isWide(text.size()) && cpu::hasAvx2()) return avx2::findNotPlain(text);
#endif
#ifdef WIDE_NEON
  if (isWide(text.size()) && cpu::hasNeon()) return neon::findNotPlain(text);
#endif
  return scalar::findNotPlain(text);
}

std::int64_t email_subject::encodedSize(ByteView text) noexcept {
  return std::ssize(text) + 2 * static_cast<std::int64_t>(countEscapes(text)) + kFrameSize;
}

bool email_subject::encode(ByteView text, OutputBuffer& word) noexcept {
  std::uint8_t* out = word.begin();
  if (!word.makeRoom(out, roomFor(text))) return false;
  out = append(out, kOpening);
  out = encodeText(text, out);
  out = append(out, kClosing);
  return word.finish(out);
}

WRAPPING_FUNCTION std::size_t email_subject::scalar::findNotPlain(ByteView text) noexcept {
  constexpr std::size_t kWord = 8;
  const auto isPlain = [](std::uint8_t byte) { return byte >= 0x20 && byte <= 0x7F; };
  std::size_t i = 0;
  for (; text.size() - i >= kWord; i += kWord) {
    const std::uint64_t word = byte_word::load(text.data() + i);
    if (((word | (word - byte_word::kOnes * 0x20)) & byte_word::kHighBits) != 0) break;
  }
  while (i < text.size() && isPlain(text[i])) ++i;
  return i;
}

std::size_t email_subject::scalar::countEscapes(ByteView text) noexcept {
  std::size_t count = 0;
  for (const std::uint8_t byte : text) count += kWritten[byte].length / 3;
  return count;
}

std::uint8_t* email_subject::scalar::encode(ByteView text, std::uint8_t* out) noexcept {
  for (const std::uint8_t byte : text) out = ::append(out, kWritten[byte]);
  return out;
}

#include "bench/host/utf.h"

#include <algorithm>
#include <cstring>

#include "bench/host/utf_blocks.h"

namespace {

/// Runs of 7-bit text are taken in blocks of this many units; the loops over a block are left to the compiler to widen.
constexpr std::size_t kBlock = 16;

bool isPlain(const std::uint8_t* block) noexcept {
  std::uint64_t low = 0;
  std::uint64_t high = 0;
  std::memcpy(&low, block, sizeof low);
  std::memcpy(&high, block + sizeof low, sizeof high);
  return ((low | high) & 0x8080'8080'8080'8080) == 0;
}

template <typename To, typename From>
void copyBlock(const From* from, To* to) noexcept {
  for (std::size_t i = 0; i < kBlock; ++i) to[i] = static_cast<To>(from[i]);
}

char32_t trail(std::uint8_t byte) noexcept { return byte & 0x3FU; }

/// Reads one character and moves past it; bytes that the end cuts off count as zero.
char32_t readCharacter(const std::uint8_t*& in, const std::uint8_t* end) noexcept {
  const auto next = [&]() -> char32_t { return in != end ? trail(*in++) : 0; };
  const char32_t lead = *in++;
  if (lead < 0x80) return lead;
  if (lead < 0xE0) return (lead & 0x1F) << 6 | next();
  if (lead < 0xF0) {
    const char32_t high = (lead & 0x0F) << 12 | next() << 6;
    return high | next();
  }
  char32_t high = (lead & 0x07) << 18 | next() << 12;
  high |= next() << 6;
  return high | next();
}

char16_t* write(char32_t character, char16_t* out) noexcept {
  if (character < 0x10000) {
    *out++ = static_cast<char16_t>(character);
    return out;
  }
  *out++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
  *out++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
  return out;
}

char32_t* write(char32_t character, char32_t* out) noexcept {
  *out++ = character;
  return out;
}

template <typename Unit>
Unit* decodeUnits(ByteView utf8, Unit* out) noexcept {
  const std::uint8_t* in = utf8.data();
  const std::uint8_t* const end = in + utf8.size();
  while (in != end) {
    if (static_cast<std::size_t>(end - in) >= kBlock && isPlain(in)) {
      copyBlock(in, out);
      in += kBlock;
      out += kBlock;
    } else {
      const std::uint8_t* const stop = static_cast<std::size_t>(end - in) > kBlock ? in + kBlock : end;
      while (in < stop) out = write(readCharacter(in, end), out);
    }
  }
  return out;
}

std::uint8_t* writeUtf8(char32_t character, std::uint8_t* out) noexcept {
  if (character < 0x80) {
    *out++ = static_cast<std::uint8_t>(character);
  } else if (character < 0x800) {
    *out++ = static_cast<std::uint8_t>(0xC0 | character >> 6);
    *out++ = static_cast<std::uint8_t>(0x80 | (character & 0x3F));
  } else if (character < 0x10000 && (character & 0xF800) != 0xD800) {
    *out++ = static_cast<std::uint8_t>(0xE0 | character >> 12);
    *out++ = static_cast<std::uint8_t>(0x80 | (character >> 6 & 0x3F));
    *out++ = static_cast<std::uint8_t>(0x80 | (character & 0x3F));
  } else if (character - 0x10000 < 0x100000) {
    *out++ = static_cast<std::uint8_t>(0xF0 | character >> 18);
    *out++ = static_cast<std::uint8_t>(0x80 | (character >> 12 & 0x3F));
    *out++ = static_cast<std::uint8_t>(0x80 | (character >> 6 & 0x3F));
    *out++ = static_cast<std::uint8_t>(0x80 | (character & 0x3F));
  } else {
    return writeUtf8(0xFFFD, out);
  }
  return out;
}

char32_t readUnit(const char32_t*& in, const char32_t* /*end*/) noexcept { return *in++; }

char32_t readUnit(const char16_t*& in, const char16_t* end) noexcept {
  const char32_t unit = *in++;
  if ((unit & 0xFC00) != 0xD800 || in == end || (*in & 0xFC00) != 0xDC00) return unit;
  return ((unit - 0xD7C0) << 10) + (*in++ & 0x3FFU);
}

/// Runs in vectors while there is room to write whole ones; what stops a run goes unit by unit.
template <typename Unit>
std::uint8_t* encodeUnits(std::span<const Unit> units, std::uint8_t* out) noexcept {
  const Unit* in = units.data();
  const Unit* const end = in + units.size();
#ifdef WIDE_AVX2
  while (cpu::hasAvx2() && end - in >= lean::kBlockRoom) {
    const lean::Run<Unit> run = lean::encodeRun(in, end, out);
    in = run.in;
    out = run.out;
    const Unit* const stop = in + std::min<std::ptrdiff_t>(8, end - in);
    while (in < stop) out = writeUtf8(readUnit(in, end), out);
  }
#endif
  while (in != end) out = writeUtf8(readUnit(in, end), out);
  return out;
}

}  // namespace

char16_t* lean::decode(ByteView utf8, char16_t* units) noexcept { return decodeUnits(utf8, units); }
char32_t* lean::decode(ByteView utf8, char32_t* units) noexcept { return decodeUnits(utf8, units); }
std::uint8_t* lean::encode(Utf16View units, std::uint8_t* utf8) noexcept { return encodeUnits(units, utf8); }
std::uint8_t* lean::encode(Utf32View units, std::uint8_t* utf8) noexcept { return encodeUnits(units, utf8); }

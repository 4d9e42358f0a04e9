#include "standin/transcode.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "standin/single_byte_sets.h"

namespace standin {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char kUnrepresentable = '?';

using ByteSet = std::array<char16_t, 128>;

std::uint8_t byteAt(std::string_view bytes, std::size_t index) { return static_cast<std::uint8_t>(bytes[index]); }

/// Which second bytes may follow a lead byte (Unicode 15, table 3-7), and how many bytes follow in all.
struct Lead {
  int following;
  std::uint8_t lowest;
  std::uint8_t highest;
};

Lead leadOf(std::uint8_t byte) {
  if (byte >= 0xC2 && byte <= 0xDF) return {1, 0x80, 0xBF};
  if (byte == 0xE0) return {2, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {2, 0x80, 0xBF};
  if (byte == 0xF0) return {3, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {3, 0x80, 0xBF};
  if (byte == 0xF4) return {3, 0x80, 0x8F};
  return {0, 0, 0};
}

template <typename Sink>
void readUtf8(std::string_view bytes, Sink sink) {
  std::size_t at = 0;
  while (at < bytes.size()) {
    const std::uint8_t first = byteAt(bytes, at++);
    if (first < 0x80) {
      sink(first);
      continue;
    }
    Lead lead = leadOf(first);
    char32_t character = first & (0x3FU >> lead.following);
    bool whole = lead.following > 0;
    for (; lead.following > 0; --lead.following) {
      if (at == bytes.size() || byteAt(bytes, at) < lead.lowest || byteAt(bytes, at) > lead.highest) {
        whole = false;
        break;
      }
      character = (character << 6) | (byteAt(bytes, at++) & 0x3FU);
      lead = {lead.following, 0x80, 0xBF};
    }
    sink(whole ? character : kReplacement);
  }
}

/// Unit number `index`, its bytes reversed where the text is in the other byte order.
template <typename Unit>
Unit unitAt(std::string_view bytes, std::size_t index, bool reversed) {
  char raw[sizeof(Unit)];
  std::memcpy(raw, bytes.data() + index * sizeof(Unit), sizeof(Unit));
  if (reversed) std::reverse(raw, raw + sizeof(Unit));
  Unit unit;
  std::memcpy(&unit, raw, sizeof(Unit));
  return unit;
}

template <typename Sink>
void readUtf16(std::string_view bytes, Sink sink) {
  const std::size_t units = bytes.size() / 2;
  const bool reversed = units > 0 && unitAt<char16_t>(bytes, 0, false) == 0xFFFE;
  for (std::size_t index = 0; index < units; ++index) {
    const char32_t unit = unitAt<char16_t>(bytes, index, reversed);
    if (unit < 0xD800 || unit > 0xDFFF) {
      sink(unit);
    } else if (unit < 0xDC00 && index + 1 < units) {
      const char32_t low = unitAt<char16_t>(bytes, index + 1, reversed);
      if (low < 0xDC00 || low > 0xDFFF) continue;
      sink(((unit - 0xD800) << 10) + (low - 0xDC00) + 0x10000);
      ++index;
    }
  }
}

template <typename Sink>
void readUtf32(std::string_view bytes, Sink sink) {
  const std::size_t units = bytes.size() / 4;
  const bool reversed = units > 0 && unitAt<char32_t>(bytes, 0, false) == 0xFFFE0000;
  for (std::size_t index = 0; index < units; ++index) {
    const char32_t unit = unitAt<char32_t>(bytes, index, reversed);
    if (unit >= 0xD800 && unit <= 0xDFFF) continue;
    sink(unit > 0x10FFFF ? kReplacement : unit);
  }
}

template <typename Sink>
void readByteSet(std::string_view bytes, const ByteSet& set, Sink sink) {
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    sink(byte < 0x80 ? char32_t{byte} : char32_t{set[byte - 0x80U]});
  }
}

template <typename Sink>
void readAscii(std::string_view bytes, Sink sink) {
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    sink(byte < 0x80 ? char32_t{byte} : kReplacement);
  }
}

/// Hands the text's characters, all of them scalar values, to `sink`.
template <typename Sink>
void read(std::string_view bytes, TextEncoding encoding, Sink sink) {
  switch (encoding) {
    case kEncodingUTF8:
      return readUtf8(bytes, sink);
    case kEncodingUTF16:
      return readUtf16(bytes, sink);
    case kEncodingUTF32:
      return readUtf32(bytes, sink);
    case kEncodingWindowsLatin1:
      return readByteSet(bytes, kWindowsLatin1, sink);
    case kEncodingASCII:
      return readAscii(bytes, sink);
    default:
      return readByteSet(bytes, kMacRoman, sink);
  }
}

template <typename Unit>
void appendUnit(std::string& out, Unit unit) {
  char raw[sizeof(Unit)];
  std::memcpy(raw, &unit, sizeof(Unit));
  out.append(raw, sizeof(Unit));
}

void appendUtf8(std::string& out, char32_t character) {
  const auto continuation = [&](int shift) { out += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
  if (character < 0x80) {
    out += static_cast<char>(character);
  } else if (character < 0x800) {
    out += static_cast<char>(0xC0 | (character >> 6));
    continuation(0);
  } else if (character < 0x10000) {
    out += static_cast<char>(0xE0 | (character >> 12));
    continuation(6);
    continuation(0);
  } else {
    out += static_cast<char>(0xF0 | (character >> 18));
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

void appendUtf16(std::string& out, char32_t character) {
  if (character < 0x10000) return appendUnit(out, static_cast<char16_t>(character));
  appendUnit(out, static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
  appendUnit(out, static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
}

void appendByteSet(std::string& out, char32_t character, const ByteSet& set) {
  if (character < 0x80) {
    out += static_cast<char>(character);
    return;
  }
  const auto* found = std::find(set.begin(), set.end(), character);
  out += found == set.end() ? kUnrepresentable : static_cast<char>(0x80 + (found - set.begin()));
}

void append(std::string& out, TextEncoding encoding, char32_t character) {
  switch (encoding) {
    case kEncodingUTF8:
      return appendUtf8(out, character);
    case kEncodingUTF16:
      return appendUtf16(out, character);
    case kEncodingUTF32:
      return appendUnit(out, character);
    case kEncodingWindowsLatin1:
      return appendByteSet(out, character, kWindowsLatin1);
    case kEncodingASCII:
      out += character < 0x80 ? static_cast<char>(character) : kUnrepresentable;
      return;
    default:
      return appendByteSet(out, character, kMacRoman);
  }
}

}  // namespace

bool isKnown(TextEncoding encoding) noexcept {
  switch (encoding) {
    case kEncodingMacRoman:
    case kEncodingUTF16:
    case kEncodingWindowsLatin1:
    case kEncodingASCII:
    case kEncodingUTF8:
    case kEncodingUTF32:
    case kEncodingNone:
      return true;
    default:
      return false;
  }
}

int unitSize(TextEncoding encoding) noexcept {
  if (encoding == kEncodingUTF16) return 2;
  return encoding == kEncodingUTF32 ? 4 : 1;
}

std::optional<std::string> transcode(std::string_view bytes, TextEncoding from, TextEncoding to) {
  if (!isKnown(from) || !isKnown(to)) return std::nullopt;
  if (from == to || to == kEncodingNone) return std::string(bytes);
  std::string out;
  out.reserve(bytes.size() / static_cast<std::size_t>(unitSize(from)) * static_cast<std::size_t>(unitSize(to)));
  read(bytes, from, [&](char32_t character) { append(out, to, character); });
  return out;
}

void reverseUnits(std::string& bytes, int bytesPerUnit) noexcept {
  const auto size = static_cast<std::ptrdiff_t>(bytes.size());
  for (std::ptrdiff_t at = 0; at + bytesPerUnit <= size; at += bytesPerUnit) {
    std::reverse(bytes.begin() + at, bytes.begin() + at + bytesPerUnit);
  }
}

}  // namespace standin

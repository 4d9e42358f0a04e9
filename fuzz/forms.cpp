#include "fuzz/forms.h"

#include <algorithm>
#include <cstring>

#include "standin/transcode.h"

namespace fuzz {
namespace {

using namespace standin;  // NOLINT: the vocabulary of calls

bool isAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// What the host makes of a text; nothing where it refuses.
std::string converted(const Host& host, const Text& text, TextEncoding encoding) {
  if (text.null) return {};
  TextEncoding from = text.encoding;
  if (from == kEncodingNone) from = isAscii(text.bytes) ? kEncodingASCII : kEncodingMacRoman;
  std::string form = transcode(text.bytes, from, encoding).value_or("");
  host.dress(form, encoding);
  return isKnown(from) ? form : std::string();
}

template <typename Unit>
std::basic_string<Unit> units(std::string_view bytes) {
  std::basic_string<Unit> text(bytes.size() / sizeof(Unit), Unit{});
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * sizeof(Unit));
  return text;
}

/// Undoes the other byte order and takes the byte-order mark off.
template <typename Unit>
std::basic_string<Unit> normalised(std::string bytes) {
  std::basic_string<Unit> text = units<Unit>(bytes);
  constexpr Unit kReversedMark = sizeof(Unit) == 2 ? 0xFFFE : static_cast<Unit>(0xFFFE0000);
  if (text.starts_with(kReversedMark)) {
    bytes.resize(text.size() * sizeof(Unit));
    reverseUnits(bytes, sizeof(Unit));
    text = units<Unit>(bytes);
  }
  if (text.starts_with(Unit{0xFEFF})) text.erase(0, text.starts_with(std::basic_string<Unit>{0xFEFF, 0xFFFE}) ? 2 : 1);
  return text;
}

}  // namespace

std::string asciiForm(const Host& host, const Text& text) {
  if (text.encoding == kEncodingNone && isAscii(text.bytes)) return text.bytes;
  return converted(host, text, kEncodingASCII);
}

std::string utf8Form(const Host& host, const Text& text) {
  if (text.encoding == kEncodingNone && isAscii(text.bytes)) return text.bytes;
  const bool isReadable = text.encoding == kEncodingASCII || text.encoding == kEncodingUTF8;
  if (host.options().version < 2015.03 && isReadable) return text.bytes;
  return converted(host, text, kEncodingUTF8);
}

std::u16string utf16Form(const Host& host, const Text& text) {
  return normalised<char16_t>(converted(host, text, kEncodingUTF16));
}

std::u32string utf32Form(const Host& host, const Text& text) {
  return normalised<char32_t>(converted(host, text, kEncodingUTF32));
}

Text built(std::string_view bytes, TextEncoding encoding) {
  const bool mayBeAscii = encoding == kEncodingNone && isAscii(bytes);
  return marked(bytes, mayBeAscii ? kEncodingASCII : encoding);
}

Text built(std::u16string_view units) { return utf8(*transcode(utf16(units).bytes, kEncodingUTF16, kEncodingUTF8)); }

Text built(const Host& host, std::u32string_view codePoints) {
  if (host.options().version >= 2013.0) {
    return utf8(*transcode(utf32(codePoints).bytes, kEncodingUTF32, kEncodingUTF8));
  }
  std::u16string units;
  for (const char32_t c : codePoints) {
    if (c >= 0xD800 && c < 0xE000) continue;
    if (c < 0x10000) {
      units += static_cast<char16_t>(c);
    } else if (c > 0x10FFFF) {
      units += u'\uFFFD';
    } else {
      units += {static_cast<char16_t>(0xD7C0 + (c >> 10)), static_cast<char16_t>(0xDC00 + (c & 0x3FF))};
    }
  }
  return built(units);
}

}  // namespace fuzz

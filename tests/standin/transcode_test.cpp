#include "standin/transcode.h"

#include <doctest/doctest.h>
#include <string>
#include <string_view>

#include "standin/values.h"
#include "tests/support/skipped.h"

#ifdef HAS_ICONV
#include <iconv.h>
#endif

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace standin {
namespace {

constexpr TextEncoding kAll[] = {kEncodingMacRoman, kEncodingUTF16, kEncodingWindowsLatin1, kEncodingASCII,
                                 kEncodingUTF8,     kEncodingUTF32, kEncodingNone};

std::string converted(std::string_view bytes, TextEncoding from, TextEncoding to) {
  return transcode(bytes, from, to).value();
}

struct Case {
  std::string name;
  TextEncoding from;
  std::string bytes;
  std::string text;  ///< in UTF-8
};

TEST_CASE("odd input reads as valid text") {
  const Case kCases[] = {
      {"an overlong form", kEncodingUTF8, "\xC0\x80", "\uFFFD\uFFFD"},
      {"a truncated sequence is one character", kEncodingUTF8, "\xF0\x9F\x98", "\uFFFD"},
      {"an encoded surrogate", kEncodingUTF8, "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"ASCII with the high bit", kEncodingASCII, "a\xE9", "a\uFFFD"},
      {"a surrogate pair", kEncodingUTF16, utf16(u"\U0001F600").bytes, "\U0001F600"},
      {"an unpaired high surrogate", kEncodingUTF16, utf16({u"a\xD800z", 3}).bytes, "az"},
      {"a high surrogate at the end", kEncodingUTF16, utf16({u"a\xD800", 2}).bytes, "a"},
      {"half a unit at the end", kEncodingUTF16, utf16(u"a").bytes + "z", "a"},
      {"a byte-order mark stays", kEncodingUTF16, utf16(u"\uFEFFa").bytes, "\uFEFFa"},
      {"a reversed byte-order mark", kEncodingUTF16, utf16({u"\xFFFE\x6100", 2}).bytes, "\uFEFFa"},
      {"UTF-32", kEncodingUTF32, utf32(U"a\U0001F600").bytes, "a\U0001F600"},
      {"a surrogate in UTF-32", kEncodingUTF32, utf32({U"a\xD800", 2}).bytes, "a"},
      {"UTF-32 above the last code point", kEncodingUTF32, utf32({U"\x110000\x80000000", 2}).bytes, "\uFFFD\uFFFD"},
      {"a reversed mark in UTF-32", kEncodingUTF32, utf32({U"\xFFFE0000\x61000000", 2}).bytes, "\uFEFFa"},
      {"bytes without an encoding", kEncodingNone, "a\xA5", "a\u2022"},
  };
  for (const Case& c : kCases) {
    CAPTURE(c.name);
    // By way of another form, as bytes go through unread between equal ones.
    const TextEncoding way = c.from == kEncodingUTF16 ? kEncodingUTF8 : kEncodingUTF16;
    CHECK(converted(converted(c.bytes, c.from, way), way, kEncodingUTF8) == c.text);
  }
}

TEST_CASE("a character the target cannot represent becomes a question mark") {
  CHECK(converted("a\u20AC\u2022\U0001F600", kEncodingUTF8, kEncodingASCII) == "a???");
  CHECK(converted("a\u20AC\u2022\U0001F600", kEncodingUTF8, kEncodingWindowsLatin1) == "a\x80\x95?");
  CHECK(converted("a\u20AC\u2022\U0001F600", kEncodingUTF8, kEncodingMacRoman) == "a\xDB\xA5?");
}

TEST_CASE("between equal encodings, and to none, the bytes are handed on") {
  for (const TextEncoding encoding : kAll) {
    CHECK(converted("\xFF\xFE\x80\xD8x", encoding, encoding) == "\xFF\xFE\x80\xD8x");
    CHECK(converted("\xFF\xFE\x80\xD8x", encoding, kEncodingNone) == "\xFF\xFE\x80\xD8x");
  }
}

TEST_CASE("an unknown encoding is refused") {
  CHECK_FALSE(transcode("a", 0x0201, kEncodingUTF8));
  CHECK_FALSE(transcode("a", kEncodingUTF8, 0x0201));
}

TEST_CASE("every character survives the Unicode forms, and every byte its own set") {
  std::u32string all;
  for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 251) {
    if (c < 0xD800 || c > 0xDFFF) all += c;
  }
  const std::string wide = utf32(all).bytes;
  for (const TextEncoding form : {kEncodingUTF8, kEncodingUTF16}) {
    CHECK(converted(converted(wide, kEncodingUTF32, form), form, kEncodingUTF32) == wide);
  }
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  for (const TextEncoding set : {kEncodingMacRoman, kEncodingWindowsLatin1}) {
    CHECK(converted(converted(bytes, set, kEncodingUTF16), kEncodingUTF16, set) == bytes);
  }
}

#ifdef HAS_ICONV
/// The C library's conversion; empty where it refuses.
std::string byLibrary(const char* from, const char* to, std::string bytes) {
  const iconv_t converter = iconv_open(to, from);
  REQUIRE(converter != reinterpret_cast<iconv_t>(-1));
  std::string out(bytes.size() * 4 + 16, '\0');
  char* in = bytes.data();
  char* at = out.data();
  std::size_t left = bytes.size();
  std::size_t room = out.size();
  const bool refused = iconv(converter, &in, &left, &at, &room) == static_cast<std::size_t>(-1);
  iconv_close(converter);
  out.resize(refused ? 0 : out.size() - room);
  return out;
}
#endif

TEST_CASE("the C library converts alike") {
#ifndef HAS_ICONV
  testing::skipped("of the C library only the library itself is at hand, not its conversions");
#else
  const auto expected = [](TextEncoding set, int byte, const std::string& library) -> std::string {
    // It takes the increment sign for a delta and has a private character of its own for the company's sign.
    if (set == kEncodingMacRoman && byte == 0xC6) return "\u2206";
    if (set == kEncodingMacRoman && byte == 0xF0) return "\uF8FF";
    // It refuses the five positions of Windows-1252 without a character.
    if (library.empty()) return {static_cast<char>(0xC2), static_cast<char>(byte)};
    return library;
  };
  for (int byte = 0; byte < 256; ++byte) {
    CAPTURE(byte);
    const std::string one(1, static_cast<char>(byte));
    CHECK(converted(one, kEncodingMacRoman, kEncodingUTF8) ==
          expected(kEncodingMacRoman, byte, byLibrary("MACINTOSH", "UTF-8", one)));
    CHECK(converted(one, kEncodingWindowsLatin1, kEncodingUTF8) ==
          expected(kEncodingWindowsLatin1, byte, byLibrary("CP1252", "UTF-8", one)));
  }
#endif
}

}  // namespace
}  // namespace standin

/// Single-byte character sets.
#include "codecs/charsets.h"

#if __has_include(<iconv.h>)
#define HAS_ICONV
#include <iconv.h>
#endif

#include <numeric>
#include <utility>

#include "memory/limits.h"
#include "tests/reference/charsets.h"
#include "tests/support/kernels.h"
#include "tests/support/skipped.h"

using namespace std::string_view_literals;

namespace {

using Encode = std::size_t (*)(Utf16View, const CharacterSet&, ByteSpan) noexcept;
using Decode = void (*)(ByteView, const CharacterSet&, std::span<char16_t>) noexcept;

std::string encoded(std::u16string_view text, const CharacterSet& set, Encode kernel = charsets::encode,
                    std::size_t offset = 0) {
  const PlacedUtf16 in(text, offset % 16);
  const PlacedBytes out(static_cast<std::size_t>(charsets::encodedBound(std::ssize(text))), offset / 16);
  const std::size_t length = kernel(in.span(), set, out.span());
  CHECK(out.marginsIntact());
  REQUIRE(length <= text.size());
  return out.text().substr(0, length);
}

std::u16string decoded(std::string_view bytes, const CharacterSet& set, Decode kernel = charsets::decode,
                       std::size_t offset = 0) {
  const PlacedBytes in(bytes, offset / 16);
  const PlacedUtf16 out(bytes.size(), offset % 16);
  kernel(in.span(), set, out.span());
  CHECK(out.marginsIntact());
  return out.text();
}

void agreesWithTwin(Encode encode, Decode decode) {
  RandomBytes random(1252);
  constexpr std::u16string_view kAlphabets[] = {u"plain text", u"é€’\x81\x152œ", u"漢字", u"aé漢", u"ÿ\0\x9F–"sv};
  std::u16string everyUnit(0x10000, u'\0');
  std::iota(everyUnit.begin(), everyUnit.end(), u'\0');
  for (const CharacterSet* const set : {&kISO8859, &kCP1252}) {
    CHECK(encoded(everyUnit, *set, encode) == reference::charsetEncoded(everyUnit, set->characters));
    for (std::size_t length = 0; length <= 200; ++length) {
      CAPTURE(length);
      const std::string bytes = random(length);
      CHECK(decoded(bytes, *set, decode, random.below(512)) == reference::charsetDecoded(bytes, set->characters));
      for (const std::u16string_view alphabet : kAlphabets) {
        std::u16string text(length, u'\0');
        for (char16_t& unit : text) unit = alphabet[random.below(alphabet.size())];
        CHECK(encoded(text, *set, encode, random.below(512)) == reference::charsetEncoded(text, set->characters));
      }
    }
  }
}

}  // namespace

TEST_CASE("charsets: the longest inputs that are taken") {
  CHECK(charsets::encodingReserve(1'073'741'816) <= kMaxSize);
  CHECK(charsets::encodingReserve(1'073'741'817) > kMaxSize);
  CHECK(charsets::decodingReserve(1'073'741'807) <= kMaxSize);
  CHECK(charsets::decodingReserve(1'073'741'808) > kMaxSize);
}

TEST_CASE("charsets: the tables are those of the C library") {
#ifndef HAS_ICONV
  testing::skipped("the C library converts nothing");
#else
  for (const auto& [name, set] : {std::pair("ISO-8859-1", &kISO8859), std::pair("WINDOWS-1252", &kCP1252)}) {
    const iconv_t converter = iconv_open("UTF-16LE", name);
    if (reinterpret_cast<std::intptr_t>(converter) == -1) {
      testing::skipped("the C library's conversions are not installed");
      continue;
    }
    for (int value = 0; value < 256; ++value) {
      CAPTURE(value);
      char byte = static_cast<char>(value);
      std::u16string character(1, u'\0');  // which is what undefined bytes leave it
      char* in = &byte;
      char* out = reinterpret_cast<char*>(character.data());
      std::size_t inLeft = 1;
      std::size_t outLeft = 2;
      iconv(converter, &in, &inLeft, &out, &outLeft);
      CHECK(decoded({&byte, 1}, *set) == character);
    }
    iconv_close(converter);
  }
#endif
}

TEST_CASE("charsets: every form agrees with the naive twins") {
  IN_EVERY_FORM(charsets, agreesWithTwin(form::encode, form::decode));
}

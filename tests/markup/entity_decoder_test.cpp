#include "markup/entity_decoder.h"

#include "tests/markup/markup_text.h"
#include "tests/reference/markup.h"
#include "tests/support/kernels.h"

namespace {

using namespace std::string_view_literals;

using Kernel = std::size_t (*)(Utf32View, std::span<char32_t>) noexcept;

std::u32string decoded(Kernel kernel, std::u32string_view text, std::size_t offset = 0) {
  const PlacedUtf32 input(text, offset);
  const PlacedUtf32 output(text.size(), offset / 2);
  const std::size_t size = kernel(input.span(), output.span());
  REQUIRE(size <= text.size());
  CHECK(output.marginsIntact());
  return {output.span().data(), size};
}

constexpr Utf32Example kExamples[] = {
    {"named references", U"&lt;b&gt; caf&eacute; &euro;&nbsp;&apos;", U"<b> caf\xE9 \x20AC\xA0'"},
    {"case matters", U"&Dagger;&dagger;&DAGGER;&EURO;", U"\x2021\x2020&DAGGER;&EURO;"},
    {"the longest name", U"&thetasym;", U"\x3D1"},
    {"beginnings of names", U"&l;&a;&thetas;", U"&l;&a;&thetas;"},
    {"a name and U+0000", U"&lt\0;&l\0t;&\0;"sv, U"&lt\0;&l\0t;&\0;"sv},
    {"decimal and hexadecimal", U"&#65;&#x42;&#x6a;&#x4A;&#0065;", U"ABjJA"},
    {"no number, or none from 1 up", U"&#0;&#-65;&#;&#x;&#abc;&#x0;", U"&#0;&#-65;&#;&#x;&#abc;&#x0;"},
    {"a minus sign among the digits", U"&#6-5;&#x4-1;", U"&#6-5;&#x4-1;"},
    {"a minus sign behind the digits' end", U"&#65a-;", U"A"},
    {"the name takes in another reference", U"&#65&lt;x", U"Ax"},
    {"eight and nine in the name", U"&#1234567;&#12345678;", U"\x12D687&#12345678;"},
    {"no semicolon at the end, a longer name", U"x&thetasym", U"x\x3D1"},
    {"no semicolon at the end, too long", U"&amp x&thetasymx", U"&amp x&thetasymx"},
    {"no semicolon at the end, another reference in the name", U"&#65&lt", U"A"},
    {"an ampersand before a reference", U"&&amp;&;&amp;", U"&&&;&"},
    {"characters that narrow to others", U"\x10026lt;&\x1006Ct;&#\x10036\x10035;",
     U"\x10026lt;&\x1006Ct;&#\x10036\x10035;"},
};

void agreesWithTwin(Kernel kernel) {
  checkExamples(
      kExamples, [kernel](std::u32string_view text) { return decoded(kernel, text); }, reference::entitiesDecoded);
  RandomBytes random(23);
  for (const markup_text::Mix mix : markup_text::kMixes) {
    for (std::size_t length = 0; length <= 160; ++length) {
      const std::u32string text = markup_text::random(random, mix, length);
      CAPTURE(length);
      CHECK(decoded(kernel, text, random.below(8)) == reference::entitiesDecoded(text));
    }
  }
}

/// A reference at every place of texts that end with the widest step, shortly behind it, and long behind it.
void atEveryPlace(Kernel kernel) {
  for (const std::u32string_view reference : {U"&thetasym;"sv, U"&lt;"sv, U"&thetasymx;"sv, U"&#65&lt;"sv, U"&&&"sv}) {
    for (const std::size_t size : {64U, 67U, 160U}) {
      for (std::size_t place = 0; place + reference.size() <= size; ++place) {
        std::u32string text(size - reference.size(), U'x');
        text.insert(place, reference);
        CAPTURE(place);
        CHECK(decoded(kernel, text) == reference::entitiesDecoded(text));
      }
    }
  }
}

void mayHave(bool (*kernel)(Utf32View) noexcept) {
  for (std::size_t length = 0; length <= 100; ++length) {
    std::u32string text(length, U'x');
    CHECK_FALSE(kernel(PlacedUtf32(text, 0).span()));
    for (std::size_t i = 0; i < length; ++i) {
      text[i] = 0x10026;
      REQUIRE_FALSE(kernel(PlacedUtf32(text, 0).span()));
      text[i] = U'&';
      REQUIRE(kernel(PlacedUtf32(text, 0).span()));
      text[i] = U'x';
    }
  }
}

}  // namespace

TEST_CASE("entity decoder: every form agrees with the naive twin") {
  IN_EVERY_FORM(entity_decoder, agreesWithTwin(form::decode));
  IN_EVERY_FORM(entity_decoder, atEveryPlace(form::decode));
  IN_EVERY_FORM(entity_decoder, mayHave(form::mayHaveReferences));
}

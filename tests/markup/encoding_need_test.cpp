#include "markup/encoding_need.h"

#include "tests/markup/markup_text.h"
#include "tests/reference/markup.h"
#include "tests/support/kernels.h"

namespace {

using namespace std::string_view_literals;
using markup_text::Mix;

struct Case {
  const char* name;
  std::u32string_view text;
  bool html;
  bool xml;
};

constexpr Case kCases[] = {
    {"plain text and control characters", U"a\x01\t\x7F", false, false},
    {"a markup character", U"a<", true, true},
    {"a character beyond ASCII", U"caf\xE9", true, false},
    {"a markup character behind U+0000", U"a\0<"sv, false, false},
    {"a markup character before U+0000", U"a<\0"sv, true, true},
    {"units that look like markup in their low bits", U"\x10026\x2222", true, false},
    {"a unit of 2^31 and more", U"\x80000026\xFFFFFF3C", true, false},
};

using Question = bool (*)(Utf32View) noexcept;

void agreesWithTwin(Question forHtml, Question forXml) {
  for (const Case& c : kCases) {
    CAPTURE(c.name);
    CHECK(forHtml(PlacedUtf32(c.text, 0).span()) == c.html);
    CHECK(forXml(PlacedUtf32(c.text, 0).span()) == c.xml);
  }
  // A single decisive character at every place of otherwise plain text.
  constexpr char32_t kDecisive[] = {0, U'"', U'&', U'\'', U'<', U'>', 0x80, 0xFF, 0x8000, 0x10026, 0x8000'0000};
  RandomBytes random(22);
  for (std::size_t length = 1; length <= 100; ++length) {
    for (const char32_t decisive : kDecisive) {
      std::u32string text = markup_text::random(random, Mix::kPlain, length);
      text[random.below(length)] = decisive;
      if (random.below(2) != 0) text[random.below(length)] = kDecisive[random.below(std::size(kDecisive))];
      const PlacedUtf32 placed(text, random.below(8));
      CAPTURE(length);
      CHECK(forHtml(placed.span()) == reference::needsHtmlEncoding(text));
      CHECK(forXml(placed.span()) == reference::needsXmlEncoding(text));
    }
  }
}

}  // namespace

TEST_CASE("encoding need: every form agrees with the naive twin") {
  IN_EVERY_FORM(encoding_need, agreesWithTwin(form::forHtml, form::forXml));
}

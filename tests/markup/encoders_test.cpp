#include <vector>

#include "markup/html_encoder.h"
#include "markup/output_limit.h"
#include "markup/xml_encoder.h"
#include "tests/markup/markup_text.h"
#include "tests/reference/markup.h"
#include "tests/support/kernels.h"

namespace {

using namespace std::string_view_literals;
using html::Markup;
using xml::Apostrophe;

using HtmlKernel = bool (*)(Utf32View, Markup, OutputBuffer&) noexcept;
using XmlKernel = bool (*)(Utf32View, Apostrophe, OutputBuffer&) noexcept;

std::string asHtml(HtmlKernel kernel, std::u32string_view text, Markup markup, std::size_t offset = 0) {
  const PlacedUtf32 input(text, offset);
  OutputBuffer ascii;
  REQUIRE(kernel(input.span(), markup, ascii));
  return {reinterpret_cast<const char*>(ascii.data()), static_cast<std::size_t>(ascii.size())};
}

std::u32string asXml(XmlKernel kernel, std::u32string_view text, Apostrophe apostrophe, std::size_t offset = 0) {
  const PlacedUtf32 input(text, offset);
  OutputBuffer units;
  REQUIRE(kernel(input.span(), apostrophe, units));
  REQUIRE(units.size() % 4 == 0);
  return {reinterpret_cast<const char32_t*>(units.data()), static_cast<std::size_t>(units.size() / 4)};
}

struct HtmlCase {
  const char* name;
  std::u32string_view text;
  std::string_view escaped;
  std::string_view kept;  ///< with the markup characters left alone
};

constexpr HtmlCase kHtml[] = {
    {"markup characters", U"a < b & \"c\" >", "a &lt; b &amp; &quot;c&quot; &gt;", "a < b & \"c\" >"},
    {"an apostrophe has a number", U"Tom's", "Tom&#39;s", "Tom's"},
    {"named characters", U"<b>caf\xE9</b>\xA0\x20AC", "&lt;b&gt;caf&eacute;&lt;/b&gt;&nbsp;&euro;",
     "<b>caf&eacute;</b>&nbsp;&euro;"},
    {"numbered characters", U"\x100\x1F600\xFEFF\x80", "&#256;&#128512;&#65279;&#128;",
     "&#256;&#128512;&#65279;&#128;"},
    {"units that are no code points", U"\xD800\x110000\x7FFFFFFF\x80000000\xFFFFFFFF",
     "&#55296;&#1114112;&#2147483647;&#-2147483648;&#-1;", "&#55296;&#1114112;&#2147483647;&#-2147483648;&#-1;"},
    {"control characters", U"x\0\x01\x08\t\n\x0B\x0C\r\x0E\x1F\x7F"sv, "x\t\n\r\x7F", "x\t\n\r\x7F"},
};

constexpr Utf32Example kXml[] = {
    {"markup characters", U"a < b & \"c\" >", U"a &lt; b &amp; &quot;c&quot; &gt;"},
    {"other characters stay", U"caf\xE9 <\x1F600\xD800\x80000000\xFFFFFFFF",
     U"caf\xE9 &lt;\x1F600\xD800\x80000000\xFFFFFFFF"},
    {"control characters", U"x\0\x01\x08\t\n\x0B\x0C\r\x0E\x1F\x7F"sv, U"x\t\n\r\x7F"},
};

/// Text of every kind and length; every character among plain text, up to beyond the last entity; and some of each
/// number of digits.
std::vector<std::u32string> texts() {
  RandomBytes random(222);
  std::vector<std::u32string> texts;
  for (const markup_text::Mix mix : markup_text::kMixes) {
    for (std::size_t length = 0; length <= 70; ++length) texts.push_back(markup_text::random(random, mix, length));
    texts.push_back(markup_text::random(random, mix, 3000));  // grows
  }
  std::u32string characters;
  for (char32_t code = 0; code <= 0x2700; ++code) characters += code;
  for (char32_t code = 1; code < 1'000'000'000; code *= 10) characters += {code - 1, code, code * 5};
  for (const char32_t character : characters) texts.emplace_back(20, U'x')[random.below(20)] = character;
  texts.push_back(characters);
  return texts;
}

void htmlAgreesWithTwin(HtmlKernel kernel) {
  for (const HtmlCase& c : kHtml) {
    CAPTURE(c.name);
    CHECK(asHtml(kernel, c.text, Markup::kEscape) == c.escaped);
    CHECK(asHtml(kernel, c.text, Markup::kKeep) == c.kept);
  }
  for (std::size_t offset = 0; const std::u32string& text : texts()) {
    REQUIRE(asHtml(kernel, text, Markup::kEscape, offset % 8) == reference::htmlEncoded(text, false));
    REQUIRE(asHtml(kernel, text, Markup::kKeep, offset++ % 8) == reference::htmlEncoded(text, true));
  }
}

void xmlAgreesWithTwin(XmlKernel kernel) {
  checkExamples(
      kXml, [=](auto text) { return asXml(kernel, text, Apostrophe::kNumber); },
      [](auto text) { return reference::xmlEncoded(text, false); });
  CHECK(asXml(kernel, U"Tom's", Apostrophe::kNumber) == U"Tom&#39;s");
  CHECK(asXml(kernel, U"Tom's", Apostrophe::kName) == U"Tom&apos;s");
  for (std::size_t offset = 0; const std::u32string& text : texts()) {
    REQUIRE(asXml(kernel, text, Apostrophe::kNumber, offset % 8) == reference::xmlEncoded(text, false));
    REQUIRE(asXml(kernel, text, Apostrophe::kName, offset++ % 8) == reference::xmlEncoded(text, true));
  }
}

TEST_CASE("an output that would be too long is noticed to the byte") {
  const std::u32string text = std::u32string(5000, U'&') + std::u32string(5000, U'<');
  const auto encode = [](Utf32View part, OutputBuffer& output) noexcept {
    return xml::encode(part, Apostrophe::kName, output);
  };
  constexpr std::int64_t kSize = 4 * (5000 * 5 + 5000 * 4);
  const Utf32View view(text.data(), text.size());
  CHECK(markup::fitsIn(kSize, view, encode));
  CHECK_FALSE(markup::fitsIn(kSize - 1, view, encode));
  CHECK(xml::encodedBound(89'478'485) <= kMaxSize);
  CHECK(html::encodedBound(153'391'689) <= kMaxSize);
  OutputBuffer refused;
  CHECK_FALSE(refused.refuse());
  CHECK(refused.tooLong());
}

}  // namespace

TEST_CASE("html: every form agrees with the naive twin") { IN_EVERY_FORM(html, htmlAgreesWithTwin(form::encode)); }

TEST_CASE("xml: every form agrees with the naive twin") { IN_EVERY_FORM(xml, xmlAgreesWithTwin(form::encode)); }

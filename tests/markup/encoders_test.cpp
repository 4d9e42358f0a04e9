#include <doctest/doctest.h>
#include <vector>

#include "markup/html_encoder.h"
#include "markup/xml_encoder.h"
#include "tests/markup/markup_text.h"
#include "tests/reference/markup.h"
#include "tests/support/forms.h"

namespace {

using namespace std::string_view_literals;
using html::Markup;
using markup_text::Placed;
using xml::Apostrophe;

using HtmlKernel = bool (*)(Utf32View, Markup, OutputBuffer&) noexcept;
using XmlKernel = bool (*)(Utf32View, Apostrophe, OutputBuffer&) noexcept;

std::string asHtml(HtmlKernel kernel, std::u32string_view text, Markup markup, std::size_t offset = 0) {
  const Placed input(text, offset);
  OutputBuffer ascii;
  REQUIRE(kernel(input.span(), markup, ascii));
  return {reinterpret_cast<const char*>(ascii.data()), static_cast<std::size_t>(ascii.size())};
}

std::u32string asXml(XmlKernel kernel, std::u32string_view text, Apostrophe apostrophe, std::size_t offset = 0) {
  const Placed input(text, offset);
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
    {"nothing", U"", "", ""},
    {"markup characters", U"a < b & \"c\" >", "a &lt; b &amp; &quot;c&quot; &gt;", "a < b & \"c\" >"},
    {"an apostrophe has a number", U"Tom's", "Tom&#39;s", "Tom's"},
    {"named characters", U"<b>caf\xE9</b>\xA0\x20AC", "&lt;b&gt;caf&eacute;&lt;/b&gt;&nbsp;&euro;",
     "<b>caf&eacute;</b>&nbsp;&euro;"},
    {"numbered characters", U"\x100\x1F600\xFEFF\x80", "&#256;&#128512;&#65279;&#128;",
     "&#256;&#128512;&#65279;&#128;"},
    {"units that are no code points", U"\xD800\x110000\x7FFFFFFF\x80000000\xFFFFFFFF",
     "&#55296;&#1114112;&#2147483647;&#-2147483648;&#-1;", "&#55296;&#1114112;&#2147483647;&#-2147483648;&#-1;"},
    {"control characters", U"x\0\x01\x08\t\n\x0B\x0C\r\x0E\x1F\x7F"sv, "x\t\n\r\x7F", "x\t\n\r\x7F"},
    {"references are text", U"&amp;", "&amp;amp;", "&amp;"},
};

struct XmlCase {
  const char* name;
  std::u32string_view text;
  std::u32string_view xml;
};

constexpr XmlCase kXml[] = {
    {"nothing", U"", U""},
    {"markup characters", U"a < b & \"c\" >", U"a &lt; b &amp; &quot;c&quot; &gt;"},
    {"other characters stay", U"caf\xE9 <\x1F600\xD800\x80000000\xFFFFFFFF",
     U"caf\xE9 &lt;\x1F600\xD800\x80000000\xFFFFFFFF"},
    {"control characters", U"x\0\x01\x08\t\n\x0B\x0C\r\x0E\x1F\x7F"sv, U"x\t\n\r\x7F"},
    {"references are text", U"&amp;", U"&amp;amp;"},
};

void htmlAgreesWithTwin(HtmlKernel kernel) {
  for (const HtmlCase& c : kHtml) {
    CAPTURE(c.name);
    CHECK(asHtml(kernel, c.text, Markup::kEscape) == c.escaped);
    CHECK(asHtml(kernel, c.text, Markup::kKeep) == c.kept);
  }
  RandomBytes random(221);
  const auto check = [&](markup_text::Mix mix, std::size_t length) {
    const std::u32string text = markup_text::random(random, mix, length);
    const std::size_t offset = random.below(8);
    CAPTURE(length);
    CHECK(asHtml(kernel, text, Markup::kEscape, offset) == reference::htmlEncoded(text, false));
    CHECK(asHtml(kernel, text, Markup::kKeep, offset) == reference::htmlEncoded(text, true));
  };
  for (const markup_text::Mix mix : markup_text::kMixes) {
    for (std::size_t length = 0; length <= 70; ++length) check(mix, length);
    check(mix, 3000);  // grows
  }
}

void xmlAgreesWithTwin(XmlKernel kernel) {
  for (const XmlCase& c : kXml) {
    CAPTURE(c.name);
    CHECK(asXml(kernel, c.text, Apostrophe::kNumber) == c.xml);
  }
  CHECK(asXml(kernel, U"Tom's", Apostrophe::kNumber) == U"Tom&#39;s");
  CHECK(asXml(kernel, U"Tom's", Apostrophe::kName) == U"Tom&apos;s");
  RandomBytes random(241);
  const auto check = [&](markup_text::Mix mix, std::size_t length) {
    const std::u32string text = markup_text::random(random, mix, length);
    const std::size_t offset = random.below(8);
    CAPTURE(length);
    CHECK(asXml(kernel, text, Apostrophe::kNumber, offset) == reference::xmlEncoded(text, false));
    CHECK(asXml(kernel, text, Apostrophe::kName, offset) == reference::xmlEncoded(text, true));
  };
  for (const markup_text::Mix mix : markup_text::kMixes) {
    for (std::size_t length = 0; length <= 70; ++length) check(mix, length);
    check(mix, 3000);  // grows
  }
}

/// Every character among plain text, up to beyond the last entity, and some of each number of digits.
std::vector<std::u32string> everyCharacter() {
  std::u32string characters;
  for (char32_t code = 0; code <= 0x2700; ++code) characters += code;
  for (char32_t code = 1; code < 1'000'000'000; code *= 10) characters += {code - 1, code, code * 5};
  RandomBytes random(222);
  std::vector<std::u32string> texts = {characters};
  for (const char32_t character : characters) {
    texts.emplace_back(20, U'x')[random.below(20)] = character;
  }
  return texts;
}

void htmlOfEveryCharacter(HtmlKernel kernel) {
  for (const std::u32string& text : everyCharacter()) {
    REQUIRE(asHtml(kernel, text, Markup::kEscape) == reference::htmlEncoded(text, false));
    REQUIRE(asHtml(kernel, text, Markup::kKeep) == reference::htmlEncoded(text, true));
  }
}

void xmlOfEveryCharacter(XmlKernel kernel) {
  for (const std::u32string& text : everyCharacter()) {
    REQUIRE(asXml(kernel, text, Apostrophe::kNumber) == reference::xmlEncoded(text, false));
  }
}

}  // namespace

TEST_CASE("html: every form agrees with the naive twin") {
  IN_EVERY_FORM(html, htmlAgreesWithTwin(form::encode));
  IN_EVERY_FORM(html, htmlOfEveryCharacter(form::encode));
}

TEST_CASE("xml: every form agrees with the naive twin") {
  IN_EVERY_FORM(xml, xmlAgreesWithTwin(form::encode));
  IN_EVERY_FORM(xml, xmlOfEveryCharacter(form::encode));
}

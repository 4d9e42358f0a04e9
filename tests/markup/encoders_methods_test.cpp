/// The HTML and XML encoders, as a program of the host calls them.
#include "standin/transcode.h"
#include "tests/markup/markup_text.h"
#include "tests/reference/markup.h"
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kHtml[] = "EncodingToHTMLZQV";
constexpr char kXml[] = "EncodingToXMLZQV";
using Names = std::vector<std::string>;

/// Checks that the very handle of the argument came back, and what it holds.
void checkSame(const Outcome& outcome, const Text& argument) {
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.sameAsArgument == 0);
  CHECK(outcome.text() == argument);
}

TEST_CASE("EncodingToHTMLZQV on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto html = [&](const Text& text, std::string_view expected) {
      checkText(call(session, kHtml, {text}), expected, kEncodingASCII);
    };
    html(utf8("a < b & c"), "a &lt; b &amp; c");
    html(ascii("Tom's"), "Tom&#39;s");
    html(utf8("<b>café</b>"), "&lt;b&gt;caf&eacute;&lt;/b&gt;");
    html(utf16(u"€ 5 \u0100 \U0001F600"), "&euro; 5 &#256; &#128512;");
    html(marked("caf\xE9", kEncodingWindowsLatin1), "caf&eacute;");
    html(raw("\xA5"), "&bull;");  // no encoding: Mac Roman
    html(ascii("a\x01<"), "a&lt;");
    html(ascii("x\t\r\n<"), "x\t\r\n&lt;");
  }
}

TEST_CASE("EncodingToHTMLZQV: options") {
  Session session;
  for (const std::int32_t keep : {1, 3, -1}) {
    checkText(call(session, kHtml, {utf8("<b>café's</b>\x01"), keep}), "<b>caf&eacute;'s</b>", kEncodingASCII);
    checkText(call(session, kHtml, {utf8("Tom's"), keep}), "Tom's", kEncodingASCII);  // a new string, and ASCII
  }
  for (const std::int32_t escape : {0, 2, INT32_MIN}) {
    checkText(call(session, kHtml, {utf8("\"Tom's\""), escape}), "&quot;Tom&#39;s&quot;", kEncodingASCII);
  }
}

TEST_CASE("EncodingToXMLZQV on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto xml = [&](const Text& text, std::int32_t options, std::string_view expected) {
      checkText(call(session, kXml, {text, options}), expected, kEncodingUTF8);
    };
    xml(utf8("a < b & \"c\""), 0, "a &lt; b &amp; &quot;c&quot;");
    xml(ascii("Tom's"), 0, "Tom&#39;s");
    xml(ascii("Tom's"), 2, "Tom&#39;s");
    xml(ascii("Tom's \"x\""), 1, "Tom&apos;s &quot;x&quot;");
    xml(ascii("Tom's"), -1, "Tom&apos;s");
    xml(utf16(u"café \U0001F600 <"), 0, "café \U0001F600 &lt;");
    xml(raw("\xA5&"), 0, "•&amp;");
    xml(ascii("x\x01\t\r\n>"), 0, "x\t\r\n&gt;");
    xml(utf8("&amp;"), 0, "&amp;amp;");
  }
}

TEST_CASE("encoders: text that needs nothing comes back itself") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const Text texts[] = {ascii("plain text"), utf8("a\tb\x01"), utf16(u"plain"),
                          utf8("a\0<"sv),      raw("a"),         marked("a", kEncodingMacRoman)};
    for (const Text& text : texts) {
      for (const std::int32_t options : {0, 1}) {
        checkSame(call(session, kHtml, {text, options}), text);
        checkSame(call(session, kXml, {text, options}), text);
      }
    }
    checkSame(call(session, kXml, {utf8("café")}), utf8("café"));
    checkSame(call(session, kXml, {utf8("\uFEFFa")}), utf8("\uFEFFa"));
  }
}

TEST_CASE("encoders: byte-order marks") {
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    CAPTURE(version);
    Session session(Options{.version = version});
    for (const std::u32string_view text : {U"\xFEFF<"sv, U"\xFEFF\xFEFF<"sv, U"\xFFFE<"sv}) {
      checkText(call(session, kHtml, {utf32(text)}), "&lt;", kEncodingASCII);
      checkText(call(session, kXml, {utf32(text)}), "&lt;", kEncodingUTF8);
    }
    checkNull(call(session, kHtml, {utf32(U"\xFEFF")}));
    checkNull(call(session, kHtml, {utf32(U"\xFEFF\xFEFF")}));  // one taken by the conversion, one by the encoder
    checkNull(call(session, kXml, {utf32(U"\xFEFF")}));
    checkText(call(session, kHtml, {utf32(U"a\xFEFF")}), "a&#65279;", kEncodingASCII);
  }
}

TEST_CASE("encoders: nothing in, nothing out, nothing raised") {
  for (const char* method : {kHtml, kXml}) {
    Session session;
    CHECK(call(session, method, {nullText()}).services.empty());
    checkNull(call(session, method, {nullText()}));
    checkNull(call(session, method, {utf8("")}));
    checkNull(call({.failing = {{"PluginGetStringData", 0}}}, method, {utf8("a<")}));
    checkNull(call({.without = {"PluginGetStringData"}}, method, {utf8("a<")}));
    checkNull(call({.version = 2011.04, .without = {"REALConvertString"}}, method, {utf8("a<")}));
  }
  checkNull(call({.without = {"REALBuildString"}}, kHtml, {utf8("a<")}));
  checkNull(call({.without = {"REALBuildStringWithEncoding"}}, kXml, {utf8("a<")}));
}

TEST_CASE("encoders: order of services") {
  Session session;
  const Names opened = {"REALGetStringEncoding", "REALLockString", "PluginGetStringData"};
  const Names closed = {"REALUnlockString", "PluginDisposeStringData"};
  const auto expect = [&](const char* method, const Text& text, const Names& between) {
    Names expected = opened;
    expected.insert(expected.end(), between.begin(), between.end());
    expected.insert(expected.end(), closed.begin(), closed.end());
    CHECK(call(session, method, {text}).services == expected);
  };
  expect(kHtml, utf8("a"), {"REALLockString"});
  expect(kXml, utf8("a"), {"REALLockString"});
  expect(kHtml, utf8("<"), {"REALBuildString", "REALSetStringEncoding"});
  expect(kXml, utf8("<"), {"REALBuildStringWithEncoding", "REALConvertString", "REALUnlockString"});
}

TEST_CASE("encoders agree with the naive twins, whatever form the host hands out") {
  RandomBytes random(2024);
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    Session session(Options{.version = version, .terminated = version > 2020, .checking = true});
    for (const markup_text::Mix mix : markup_text::kMixes) {
      std::u32string text = markup_text::random(random, mix, 1 + random.below(200));
      text[0] = U'<';
      std::erase_if(text, [](char32_t c) { return c > 0x10FFFF || (c >= 0xD800 && c < 0xE000); });
      CAPTURE(version);
      CHECK(call(session, kHtml, {utf32(text)}).text() == ascii(reference::htmlEncoded(text, false)));
      const Text xml = call(session, kXml, {utf32(text), 1}).text();
      CHECK(standin::transcode(xml.bytes, kEncodingUTF8, kEncodingUTF32) ==
            utf32(reference::xmlEncoded(text, true)).bytes);
    }
  }
}

}  // namespace

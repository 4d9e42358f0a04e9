/// The entity decoder, as a program of the host calls it.
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr const char* kMethods[] = {"DecodingFromHTMLZQV", "DecodingFromXMLZQV"};
using Names = std::vector<std::string>;

TEST_CASE("DecodingFromHTMLZQV and DecodingFromXMLZQV on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    for (const char* method : kMethods) {
      const auto decodes = [&](const Text& text, std::string_view expected) {
        checkText(call(session, method, {text}), expected, kEncodingUTF8);
      };
      decodes(ascii("&lt;b&gt; &quot;&amp;&apos;&quot;"), "<b> \"&'\"");
      decodes(ascii("caf&eacute; &euro;&nbsp;"), "café €\u00A0");
      decodes(utf16(u"&Dagger;&dagger;&EURO;"), "\u2021\u2020&EURO;");
      decodes(ascii("&#65;&#x42;&#x6a;&#X41;"), "ABj&#X41;");
      decodes(ascii("&#65&lt;"), "A");  // the name takes in all up to the semicolon
      decodes(ascii("&#0;&#-65;&#;&#12345678;"), "&#0;&#-65;&#;&#12345678;");
      decodes(ascii("&amp;amp; AT&T; &amp"), "&amp; AT&T; &");
      decodes(ascii("&#128512;"), "\U0001F600");
      decodes(ascii("nothing"), "nothing");  // a new string: UTF-8 now
      decodes(raw("\xA5&lt;"), "•<");        // no encoding: Mac Roman
      decodes(utf8("a\0&lt;\0"sv), "a\0<\0"sv);
      // Values that are no characters: the host drops surrogates and replaces what is too large.
      decodes(ascii("a&#xD800;b"), "ab");
      decodes(ascii("a&#1234567;b"), "a\uFFFDb");
    }
  }
}

TEST_CASE("entity decoder: byte-order marks") {
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    CAPTURE(version);
    Session session(Options{.version = version});
    for (const std::u32string_view text : {U"\xFEFFx"sv, U"\xFEFF\xFEFFx"sv, U"\xFFFEx"sv, U"\xFEFF&#120;"sv}) {
      checkText(call(session, kMethods[0], {utf32(text)}), "x", kEncodingUTF8);
    }
    checkNull(call(session, kMethods[0], {utf32(U"\xFEFF")}));
    checkNull(call(session, kMethods[0], {utf32(U"\xFEFF\xFEFF")}));
  }
}

TEST_CASE("entity decoder: nothing in, nothing out, nothing raised") {
  Session session;
  CHECK(call(session, kMethods[0], {nullText()}).services.empty());
  checkNull(call(session, kMethods[0], {nullText()}));
  checkNull(call(session, kMethods[0], {utf8("")}));
  checkNull(call({.failing = {{"PluginGetStringData", 0}}}, kMethods[0], {utf8("&lt;")}));
  checkNull(call({.without = {"REALConvertString"}}, kMethods[0], {utf8("&lt;")}));
}

TEST_CASE("entity decoder: the host is asked the same, with references and without") {
  Session session;
  const Names expected = {
      "REALGetStringEncoding", "REALLockString",   "PluginGetStringData", "REALBuildStringWithEncoding",
      "REALConvertString",     "REALUnlockString", "REALUnlockString",    "PluginDisposeStringData"};
  CHECK(call(session, kMethods[0], {utf8("&lt;")}).services == expected);
  CHECK(call(session, kMethods[0], {utf8("lt")}).services == expected);
}

TEST_CASE("entity decoder: a million ampersands") {
  Session session;
  const std::string ampersands(1'000'000, '&');
  checkText(call(session, kMethods[0], {ascii(ampersands)}), ampersands, kEncodingUTF8);
  checkText(call(session, kMethods[0], {ascii(ampersands + "lt")}), ampersands.substr(1) + "<", kEncodingUTF8);
}

}  // namespace

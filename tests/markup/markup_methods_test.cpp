/// What the markup methods do beside encoding and decoding: whose marks they drop, what they refuse, what stays cheap.
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kHtml[] = "EncodingToHTMLZQV";
constexpr char kXml[] = "EncodingToXMLZQV";
constexpr char kDecode[] = "DecodingFromHTMLZQV";
constexpr char kRemove[] = "RemoveHTMLTagsZQV";
constexpr char kReplace[] = "RemoveHTMLTagsWithZQV";

TEST_CASE("byte-order marks are dropped once by the conversion and once by the method") {
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    CAPTURE(version);
    Session session(Options{.version = version});
    for (const std::u32string_view text : {U"\xFEFF<"sv, U"\xFEFF\xFEFF<"sv, U"\xFFFE<"sv}) {
      checkText(call(session, kHtml, {utf32(text)}), "&lt;", kEncodingASCII);
      checkText(call(session, kXml, {utf32(text)}), "&lt;", kEncodingUTF8);
      checkText(call(session, kDecode, {utf32(text)}), "<", kEncodingUTF8);
    }
    for (const char* method : {kHtml, kDecode}) {
      checkNull(call(session, method, {utf32(U"\xFEFF")}));
      checkNull(call(session, method, {utf32(U"\xFEFF\xFEFF")}));
    }
    checkText(call(session, kHtml, {utf32(U"a\xFEFF")}), "a&#65279;", kEncodingASCII);
  }
}

TEST_CASE("readiness asks for an encoding whose low bytes are ASCII, even of a string without bytes") {
  Session session;
  Session withoutEncodings(Options{.without = {"REALGetStringEncoding"}});
  for (const char* method : {"StringIsHTMLreadyZQV", "StringIsXMLreadyZQV"}) {
    CHECK(call(session, method, {marked("", kEncodingASCII)}).boolean());
    CHECK_FALSE(call(session, method, {marked("", kEncodingNone)}).boolean());
    CHECK(call(withoutEncodings, method, {raw("abc")}).boolean());
    CHECK_FALSE(call(withoutEncodings, method, {raw("a<")}).boolean());
  }
}

TEST_CASE("a replacement that can't be had is none, a text that can't be had is empty") {
  checkText(call({.failing = {{"PluginGetStringData", 1}}}, kReplace, {utf8("a<b>"), utf8("x")}), "a", kEncodingUTF8);
  checkNull(call({.failing = {{"PluginGetStringData", 2}}}, kReplace, {utf8("a<b>"), utf8("x")}));
}

TEST_CASE("a million ampersands, a million brackets") {
  Session session;
  const std::string ampersands(1'000'000, '&');
  checkText(call(session, kDecode, {ascii(ampersands)}), ampersands, kEncodingUTF8);
  checkText(call(session, kDecode, {ascii(ampersands + "lt")}), ampersands.substr(1) + "<", kEncodingUTF8);
  const std::string many(1'000'000, '<');
  checkNull(call(session, kRemove, {ascii(many)}));
  checkText(call(session, kRemove, {ascii(many + std::string(1'000'000, '>') + "x")}), "x", kEncodingUTF8);
}

}  // namespace

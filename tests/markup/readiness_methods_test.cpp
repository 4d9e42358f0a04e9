/// The readiness tests, as a program of the host calls them.
#include "tests/support/methods.h"

using namespace testing;

namespace {

using Names = std::vector<std::string>;

/// The answer of both methods, which has to be the same.
bool isReady(Session& session, const Text& text) {
  const Outcome html = call(session, "StringIsHTMLreadyZQV", {text});
  const Outcome xml = call(session, "StringIsXMLreadyZQV", {text});
  CHECK_FALSE(html.exception.has_value());
  CHECK(html.boolean() == xml.boolean());
  return html.boolean();
}

TEST_CASE("StringIsHTMLreadyZQV and StringIsXMLreadyZQV on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    for (const Text& text : {nullText(), utf8(""), ascii("Hello World"), utf8("a\tb\r\n\x01\x7F")}) {
      CAPTURE(text);
      CHECK(isReady(session, text));
    }
    for (const char* text : {"a<b", "Tom's", "x & y", "1 > 0", "\"", "café"}) {
      CAPTURE(text);
      CHECK_FALSE(isReady(session, utf8(text)));
    }
    CHECK_FALSE(isReady(session, utf8("a\0b"sv)));
  }
}

TEST_CASE("readiness asks for an encoding whose low bytes are ASCII") {
  Session session;
  for (const TextEncoding accepted : {kEncodingMacRoman, kEncodingWindowsLatin1, kEncodingASCII, kEncodingUTF8}) {
    CHECK(isReady(session, marked("abc", accepted)));
    CHECK(isReady(session, marked("", accepted)));
  }
  for (const TextEncoding refused : {kEncodingUTF16, kEncodingUTF32, kEncodingNone}) {
    CHECK_FALSE(isReady(session, marked("abcd", refused)));
    CHECK_FALSE(isReady(session, marked("", refused)));
  }
  Session withoutEncodings(Options{.without = {"REALGetStringEncoding"}});
  CHECK(isReady(withoutEncodings, utf16(u"")));
  CHECK(isReady(withoutEncodings, raw("abc")));
  CHECK_FALSE(isReady(withoutEncodings, raw("a<")));
}

TEST_CASE("readiness: order of services") {
  Session session;
  call(session, "StringIsHTMLreadyZQV", {ascii("a")});  // LenB is looked up once
  for (const char* method : {"StringIsHTMLreadyZQV", "StringIsXMLreadyZQV"}) {
    const auto services = [&](const Text& text) { return call(session, method, {text}).services; };
    CHECK(services(nullText()).empty());
    CHECK(services(raw("abc")) == Names{"REALGetStringEncoding"});
    CHECK(services(ascii("abc")) ==
          Names{"REALGetStringEncoding", "LenB", "StringGetCString", "REALLockString", "REALUnlockString"});
  }
}

TEST_CASE("readiness reads to the end and no further") {
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    Session session(Options{.version = version, .checking = true});
    for (std::size_t length = 1; length < 140; length += 3) {
      std::string text(length, 'x');
      CAPTURE(length);
      CHECK(isReady(session, ascii(text)));
      text.back() = '<';
      CHECK_FALSE(isReady(session, ascii(text)));
    }
  }
}

}  // namespace

#include "tests/reference/email_subject.h"
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kMethod[] = "EncodeEmailSubjectZQV";

/// Checks that the argument itself came back, with its own encoding.
void checkSame(const Options& options, const Text& subject) {
  const Outcome outcome = call(options, kMethod, {subject});
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.sameAsArgument == 0);
  CHECK(outcome.text() == subject);
}

}  // namespace

TEST_CASE("EncodeEmailSubjectZQV: plain text comes back as the same string") {
  for (const double version : kVersions) {
    CAPTURE(version);
    for (const Text& subject : {ascii("Hello World"), utf8("Hello ~\x7F"), utf16(u"Hello"), raw("Hello")}) {
      checkSame({.version = version}, subject);
    }
  }
}

TEST_CASE("EncodeEmailSubjectZQV: other text becomes an encoded word") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session({.version = version});
    checkText(call(session, kMethod, {utf8("Grüße")}), "=?utf-8?Q?Gr=C3=BC=C3=9Fe?=", kEncodingASCII);
    checkText(call(session, kMethod, {utf16(u"a b=c_d é")}), "=?utf-8?Q?a_b=3Dc=5Fd_=C3=A9?=", kEncodingASCII);
    checkText(call(session, kMethod, {utf8("x?y é")}), "=?utf-8?Q?x?y_=C3=A9?=", kEncodingASCII);
    checkText(call(session, kMethod, {ascii("a\tb")}), "=?utf-8?Q?a\tb?=", kEncodingASCII);
    checkText(call(session, kMethod, {raw("\xA5")}), "=?utf-8?Q?=E2=80=A2?=", kEncodingASCII);  // as Mac Roman
  }
}

TEST_CASE("EncodeEmailSubjectZQV: a zero byte ends the text") {
  checkSame({}, utf8("\0é"sv));
  checkSame({}, utf8("plain\0é"sv));
  checkText(call(Options{}, kMethod, {utf8("é\0x"sv)}), "=?utf-8?Q?=C3=A9?=", kEncodingASCII);
  checkText(call(Options{}, kMethod, {utf8("\t\0\0é"sv)}), "=?utf-8?Q?\t?=", kEncodingASCII);
}

TEST_CASE("EncodeEmailSubjectZQV: null, empty and refused text") {
  checkNull(call(Options{}, kMethod, {nullText()}));
  checkSame({}, utf8(""));
  checkSame({}, raw(""));
  checkNull(call({.without = {"PluginGetStringData"}}, kMethod, {utf8("é")}));
  checkNull(call({.failing = {{"PluginGetStringData", 0}}}, kMethod, {utf8("plain")}));
  checkNull(call({.version = 2011.4, .failing = {{"REALConvertString", 0}}}, kMethod, {utf16(u"plain")}));
  checkNull(call({.failing = {{"REALBuildString", 0}}}, kMethod, {utf8("é")}));
}

TEST_CASE("EncodeEmailSubjectZQV: nothing beyond the end of the text is read") {
  for (const bool terminated : {true, false}) {
    Session session({.terminated = terminated, .checking = true});
    for (std::size_t length = 1; length <= 100; length += 3) {
      const std::string text = std::string(length, ' ') + "é";
      CHECK(call(session, kMethod, {utf8(text)}).text().bytes == reference::encodedWord(text));
      CHECK(call(session, kMethod, {ascii(std::string(length, 'a'))}).sameAsArgument == 0);
    }
  }
}

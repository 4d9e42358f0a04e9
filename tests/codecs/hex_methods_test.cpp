#include "tests/reference/hex.h"
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

constexpr char kEncoding[] = "EncodingToHexZQV";
constexpr char kDecoding[] = "DecodingFromHexZQV";

}  // namespace

TEST_CASE("EncodingToHexZQV") {
  Session session;
  checkText(call(session, kEncoding, {raw("\0\x7F\xFF"sv)}), "007FFF", kEncodingASCII);
  checkText(call(session, kEncoding, {utf8("é")}), "C3A9", kEncodingASCII);
  checkText(call(session, kEncoding, {utf16(u"é")}), "E900", kEncodingASCII);  // bytes, whatever the encoding
}

TEST_CASE("DecodingFromHexZQV") {
  Session session;
  checkText(call(session, kDecoding, {ascii("4a4B")}), "JK", kEncodingASCII);
  checkText(call(session, kDecoding, {utf8("C3A9")}), "\xC3\xA9", kEncodingNone);
  checkText(call(session, kDecoding, {utf16(u"C3A9")}), "\xC3\xA9", kEncodingNone);  // text, whatever the encoding
  checkText(call(session, kDecoding, {utf8("ABC")}), "\xAB", kEncodingNone);
  checkText(call(session, kDecoding, {utf8("zz41")}), "\0A"sv, kEncodingASCII);
  checkText(call(session, kDecoding, {utf8("0A 0B")}), "\x0A\0"sv, kEncodingASCII);
}

TEST_CASE("hex: nothing in, nothing out, nothing raised") {
  Session session;
  for (const char* method : {kEncoding, kDecoding}) {
    checkNull(call(session, method, {nullText()}));
    checkNull(call(session, method, {utf8("")}));
    checkNull(call({.failing = {{"REALBuildString", 0}}}, method, {ascii("4142")}));
  }
  checkNull(call(session, kDecoding, {ascii("A")}));
  checkNull(call({.failing = {{"PluginGetStringData", 0}}}, kDecoding, {utf8("4142")}));
}

TEST_CASE("hex: every length comes back on hosts of every kind, and nothing beyond the end is read") {
  RandomBytes random(16);
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session({.version = version, .terminated = false, .oddStorage = true, .checking = true});
    for (const std::size_t length : {1U, 2U, 3U, 7U, 8U, 15U, 16U, 17U, 31U, 33U, 64U, 100U, 3000U}) {
      CAPTURE(length);
      const std::string bytes = random(length) + "\xFF";
      const Outcome digits = call(session, kEncoding, {raw(bytes)});
      checkText(digits, reference::hexEncoded(bytes), kEncodingASCII);
      checkText(call(session, kDecoding, {digits.text()}), bytes, kEncodingNone);
    }
  }
}

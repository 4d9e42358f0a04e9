#include "tests/reference/charsets.h"
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

struct Set {
  const char* encoding;
  const char* decoding;
  const CharacterTable& table;
};

constexpr Set kSets[] = {
    {"EncodingToISO8859ZQV", "DecodingFromISO8859ZQV", escapecharsISO8859},
    {"EncodingToCP1252ZQV", "DecodingFromCP1252ZQV", escapecharsCP1252},
};

}  // namespace

TEST_CASE("EncodingToISO8859ZQV") {
  Session session;
  const char* const method = kSets[0].encoding;
  checkText(call(session, method, {utf8("éaé")}), "\xE9\x61\xE9", kEncodingNone);
  checkText(call(session, method, {utf8("a€bc")}), "abc", kEncodingASCII);
  checkText(call(session, method, {utf16(u"éaé")}), "\xE9\x61\xE9", kEncodingNone);
  checkNull(call(session, method, {utf8("€€€")}));
}

TEST_CASE("EncodingToCP1252ZQV") {
  Session session;
  const char* const method = kSets[1].encoding;
  checkText(call(session, method, {utf8("a€b")}), "\x61\x80\x62", kEncodingNone);
  checkText(call(session, method, {utf8("a😀bc")}), "abc", kEncodingASCII);
  checkText(call(session, method, {utf16(u"\x81\0\x152"sv)}), "\0\x8C"sv, kEncodingNone);
}

TEST_CASE("DecodingFromISO8859ZQV and DecodingFromCP1252ZQV") {
  Session session;
  checkText(call(session, kSets[1].decoding, {raw("\x80\x81")}), "€\0"sv, kEncodingUTF8);
  checkText(call(session, kSets[0].decoding, {raw("\x80")}), "\xC2\x80", kEncodingUTF8);
  checkText(call(session, kSets[0].decoding, {utf8("é")}), "Ã©", kEncodingUTF8);  // bytes, whatever the encoding
}

TEST_CASE("charsets: fewer than three code units are not encoded") {
  Session session;
  for (const Set& set : kSets) {
    for (const char* text : {"", "é", "ab", "😀"}) checkNull(call(session, set.encoding, {utf8(text)}));
    checkNull(call(session, set.encoding, {nullText()}));
    checkNull(call(session, set.decoding, {nullText()}));
    checkNull(call(session, set.decoding, {utf8("")}));
    checkNull(call({.failing = {{"PluginGetStringData", 0}}}, set.encoding, {utf8("abc")}));
    checkNull(call({.failing = {{"REALBuildStringWithEncoding", 0}}}, set.decoding, {utf8("abc")}));
  }
}

TEST_CASE("charsets: every length comes back on hosts of every kind, and nothing beyond the end is read") {
  RandomBytes random(8859);
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session({.version = version, .terminated = false, .oddStorage = true, .checking = true});
    for (const Set& set : kSets) {
      for (const std::size_t length : {3U, 4U, 15U, 16U, 17U, 31U, 32U, 33U, 63U, 64U, 65U, 3000U}) {
        CAPTURE(length);
        const std::string bytes = random(length - 1) + "\xE9";
        const Outcome text = call(session, set.decoding, {raw(bytes)});
        CHECK(text.text().encoding == kEncodingUTF8);
        const std::string expected = reference::charsetEncoded(reference::charsetDecoded(bytes, set.table), set.table);
        checkText(call(session, set.encoding, {text.text()}), expected, kEncodingNone);
      }
    }
  }
}

/// Byte classes and byte-order marks, as a program of the host calls for them.
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

constexpr char kIsASCII[] = "IsASCIIStringZQV";
constexpr char kReplace[] = "ReplaceNonPrintableCharactersZQV";
constexpr char kDetect[] = "DetectUnicodeMarkersZQV";
constexpr char kGet[] = "GetUnicodeMarkersZQV";

struct ClassCase {
  const char* name;
  Text text;
  bool fits[3];  ///< by mode
};

TEST_CASE("byte classes, whatever the encoding, on every host") {
  const ClassCase cases[] = {
      {"the null string", nullText(), {false, false, false}},
      {"no bytes", utf8(""), {false, false, false}},
      {"a control character", ascii("abc\n"), {true, false, false}},
      {"a letter of two bytes", utf8("é"), {false, false, true}},
      {"UTF-16", utf16(u"abc"), {true, false, false}},
      {"the delete character", raw("\x7F"), {true, true, true}},
      {"a zero byte", raw("\0"sv), {true, false, false}},
      {"both sides", raw("\x1F\x80"), {false, false, false}},
      {"long text", ascii(std::string(1000, ' ')), {true, true, true}},
      {"long text with a letter of two bytes", utf8(std::string(999, ' ') + "é"), {false, false, true}},
  };
  for (const double version : kVersions) {
    Session session(Options{.version = version});
    for (const ClassCase& c : cases) {
      CAPTURE(version);
      CAPTURE(c.name);
      CHECK(call(session, kIsASCII, {c.text}).boolean() == c.fits[0]);
      for (std::int32_t mode = 0; mode < 3; ++mode) {
        CHECK(call(session, kIsASCII, {c.text, mode}).boolean() == c.fits[mode]);
      }
      for (const std::int32_t mode : {-1, 3, 256}) CHECK_FALSE(call(session, kIsASCII, {c.text, mode}).boolean());
    }
  }
}

TEST_CASE("replacement of what isn't printable") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    checkText(call(session, kReplace, {utf8("a\tbé")}), "a.b..", kEncodingASCII);
    checkText(call(session, kReplace, {raw("a\tb\xC3\xA9"), 32}), "a b  ", kEncodingASCII);
    checkText(call(session, kReplace, {utf16(u"a\x7F"), 300}), "a,\x7F,", kEncodingASCII);
    checkText(call(session, kReplace, {raw("\x80"), -1}), "\xFF", kEncodingASCII);
    checkText(call(session, kReplace, {raw("\n"), 256}), "\0"sv, kEncodingASCII);
    checkNull(call(session, kReplace, {nullText()}));
    checkNull(call(session, kReplace, {utf8("")}));
  }
}

TEST_CASE("byte classes look at nothing beyond the bytes") {
  RandomBytes random(0x434C'5353);
  for (const double version : {2015.03, 2023.1}) {
    Session session(Options{.version = version, .checking = true});
    for (std::size_t length = 1; length <= 140; length += 3) {
      CAPTURE(length);
      const std::string bytes = random.of("ab", length);
      for (std::int32_t mode = 0; mode < 3; ++mode) CHECK(call(session, kIsASCII, {ascii(bytes), mode}).boolean());
      checkText(call(session, kReplace, {ascii(bytes)}), bytes, kEncodingASCII);
      call(session, kDetect, {raw(bytes)});
    }
  }
}

TEST_CASE("byte-order marks") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto detected = [&](std::string_view bytes) { return call(session, kDetect, {raw(bytes)}).integer(); };
    CHECK(detected("\xEF\xBB\xBF"
                   "abc") == 1);
    CHECK(detected("\xFE\xFF\0a"sv) == 3);
    CHECK(detected("\xFF\xFE") == 4);
    CHECK(detected("\0\0\xFE\xFF"sv) == 6);
    CHECK(detected("\xFF\xFE\0\0"sv) == 7);
    CHECK(detected("abc") == 0);
    CHECK(detected("") == 0);
    CHECK(call(session, kDetect, {nullText()}).integer() == 0);
    CHECK(call(session, kDetect, {utf16(u"\xFEFF")}).integer() == 4);

    checkText(call(session, kGet, {1}), "\xEF\xBB\xBF", kEncodingUTF8);
    CHECK(call(session, kDetect, {call(session, kGet, {1}).text()}).integer() == 1);
    // This host keeps marks, and reads text behind a reversed one in the other order.
    for (const std::int32_t kind : {2, 3, 4, 5, 7}) {
      CAPTURE(kind);
      checkText(call(session, kGet, {kind}), "\xEF\xBB\xBF", kEncodingUTF8);
    }
    checkText(call(session, kGet, {6}), version < 2013.0 ? "\xEF\xBF\xBD" : "\xEF\xBB\xBF", kEncodingUTF8);
    for (const std::int32_t kind : {0, -1, 8, 257}) checkNull(call(session, kGet, {kind}));
  }
}

TEST_CASE("byte-order marks are built as units of their encoding") {
  Session session;
  const auto services = [&](std::int32_t kind) { return call(session, kGet, {kind}).services; };
  using Services = std::vector<std::string>;
  CHECK(services(0) == Services{});
  CHECK(services(1) == Services{"REALBuildString", "REALSetStringEncoding"});
  for (const std::int32_t kind : {2, 3, 4, 5, 6, 7}) {
    CHECK(services(kind) == Services{"REALBuildStringWithEncoding", "REALConvertString", "REALUnlockString"});
  }
}

}  // namespace

#include "tests/reference/url.h"
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

constexpr char kEncoding[] = "EncodingToURLZQV";
constexpr char kDecoding[] = "DecodingFromURLZQV";

}  // namespace

TEST_CASE("EncodingToURLZQV") {
  Session session;
  checkText(call(session, kEncoding, {utf8("a b+c~é")}), "a%20b+c%7E%C3%A9", kEncodingASCII);
  checkText(call(session, kEncoding, {utf8("a b+c"), 0}), "a%20b+c", kEncodingASCII);
  checkText(call(session, kEncoding, {utf8("a b+c"), 1}), "a+b%2Bc", kEncodingASCII);
  checkText(call(session, kEncoding, {utf8("a b+c"), 2}), "a%20b%2Bc", kEncodingASCII);
  checkText(call(session, kEncoding, {utf8("a b+c"), 3}), "a%20b+c", kEncodingASCII);
  checkText(call(session, kEncoding, {utf8("a b+c"), INT32_MAX - 2}), "a+b%2Bc", kEncodingASCII);
  checkText(call(session, kEncoding, {utf16(u"é")}), "%E9%00", kEncodingASCII);  // bytes, whatever the encoding
}

TEST_CASE("DecodingFromURLZQV") {
  Session session;
  checkText(call(session, kDecoding, {utf8("a+b%20c")}), "a+b c", kEncodingASCII);
  checkText(call(session, kDecoding, {utf8("a+b%20c"), 1}), "a b c", kEncodingASCII);
  checkText(call(session, kDecoding, {utf8("a+b%20c"), 2}), "a+b c", kEncodingASCII);
  checkText(call(session, kDecoding, {utf8("a+b%20c"), INT32_MIN + 3}), "a b c", kEncodingASCII);
  checkText(call(session, kDecoding, {utf8("%e9%zz")}), "\xE9\0"sv, kEncodingNone);
}

TEST_CASE("url: nothing in, nothing out, nothing raised") {
  Session session;
  for (const char* method : {kEncoding, kDecoding}) {
    checkNull(call(session, method, {nullText()}));
    checkNull(call(session, method, {utf8("")}));
    checkNull(call(session, method, {nullText(), 1}));
    checkNull(call({.failing = {{"REALBuildString", 0}}}, method, {ascii("abc")}));
  }
}

TEST_CASE("url: nothing beyond the end of the input is read") {
  RandomBytes random(3986);
  for (const double version : {2015.03, 2023.1}) {
    Session session({.version = version, .checking = true});
    for (std::size_t length = 0; length <= 100; ++length) {
      for (const char* end : {"%", "%4", "%41", "%%", "%%%", "\xE9"}) {
        const std::string text = random.of("some text%+", length) + end;
        CAPTURE(text);
        CHECK(call(session, kDecoding, {raw(text), 1}).text().bytes == reference::urlDecoded(text, 1));
        CHECK(call(session, kEncoding, {raw(text), 1}).text().bytes == reference::urlEncoded(text, 1));
      }
    }
  }
}

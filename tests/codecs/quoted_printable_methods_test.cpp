#include "tests/reference/quoted_printable.h"
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kEncoding[] = "EncodingToQuotedPrintableZQV";
constexpr char kDecoding[] = "DecodingFromQuotedPrintableZQV";

}  // namespace

TEST_CASE("EncodingToQuotedPrintableZQV") {
  Session session;
  checkText(call(session, kEncoding, {utf8("a=b é")}), "a=3Db =C3=A9", kEncodingASCII);
  checkText(call(session, kEncoding, {raw("\xE9")}), "=E9", kEncodingASCII);
  checkText(call(session, kEncoding, {utf16(u"a")}), "a=00", kEncodingASCII);  // bytes, whatever the encoding
  checkText(call(session, kEncoding, {ascii("a \r\nb")}), "a=20\r\nb=\r\n", kEncodingASCII);
  checkText(call(session, kEncoding, {ascii("A"), 2}), "=\r\nA", kEncodingASCII);

  const std::string run(100, 'a');
  const std::string folded = run.substr(0, 70) + "=\r\n" + run.substr(70);
  checkText(call(session, kEncoding, {ascii(run)}), folded, kEncodingASCII);
  checkText(call(session, kEncoding, {ascii(run), 1}), folded, kEncodingASCII);
  checkText(call(session, kEncoding, {ascii(run), INT32_MIN}), folded, kEncodingASCII);
  checkText(call(session, kEncoding, {ascii(run), INT32_MAX}), run, kEncodingASCII);
}

TEST_CASE("DecodingFromQuotedPrintableZQV") {
  Session session;
  checkText(call(session, kDecoding, {ascii("a=3Db=\r\nc\r\nd")}), "a=bc\nd", kEncodingASCII);
  checkText(call(session, kDecoding, {ascii("=e9")}), "\xE9", kEncodingASCII);
  checkText(call(session, kDecoding, {utf8("ab= x\r\ncd=G1")}), "abcd", kEncodingASCII);
}

TEST_CASE("quoted-printable: nothing in, nothing out, nothing raised") {
  Session session;
  for (const char* method : {kEncoding, kDecoding}) {
    checkNull(call(session, method, {nullText()}));
    checkNull(call(session, method, {utf8("")}));
    checkNull(call({.failing = {{"REALBuildString", 0}}}, method, {ascii("abc")}));
  }
  for (const char* text : {"=", "=4", "=4G", "=\r\n", "= x"}) checkNull(call(session, kDecoding, {ascii(text)}));
}

TEST_CASE("quoted-printable: nothing beyond the end of the input is read") {
  for (const double version : {2015.03, 2023.1}) {
    Session session({.version = version, .checking = true});
    for (const std::size_t length : {0U, 1U, 30U, 31U, 32U, 62U, 63U, 95U}) {
      for (const char* end : {"=", "=4", "=4E", "=\r", "= ", "\r", "\n", " ", "x", "\xE9"}) {
        const std::string bytes = std::string(length, 'x') + end;
        CAPTURE(length);
        CAPTURE(end);
        CHECK(call(session, kDecoding, {ascii(bytes)}).text().bytes == reference::quotedPrintableDecoded(bytes));
        CHECK(call(session, kEncoding, {raw(bytes), 76}).text().bytes == reference::quotedPrintableEncoded(bytes, 76));
      }
    }
  }
}

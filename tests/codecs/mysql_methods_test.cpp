#include "tests/reference/mysql.h"
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kDecoding[] = "DecodingFromMySQLZQV";

}  // namespace

TEST_CASE("DecodingFromMySQLZQV") {
  Session session;
  checkText(call(session, kDecoding, {utf8(R"(It\'s 50\%\n)")}), "It's 50%\n", kEncodingASCII);
  checkText(call(session, kDecoding, {utf8(R"(é\\n)")}), R"(é\n)", kEncodingNone);
  checkText(call(session, kDecoding, {raw(R"(\0)")}), "\0"sv, kEncodingASCII);
  checkText(call(session, kDecoding, {utf16(u"\\n")}), "\\\0n\0"sv, kEncodingASCII);  // bytes, whatever the encoding
}

TEST_CASE("mysql: nothing in, nothing out, nothing raised") {
  Session session;
  checkNull(call(session, kDecoding, {nullText()}));
  checkNull(call(session, kDecoding, {utf8("")}));
  checkNull(call({.failing = {{"REALBuildString", 0}}}, kDecoding, {ascii("abc")}));
}

TEST_CASE("mysql: nothing beyond the end of the input is read") {
  for (const double version : {2015.03, 2023.1}) {
    Session session({.version = version, .checking = true});
    for (std::size_t length = 0; length <= 100; ++length) {
      for (const char* end : {"\\", "\\\\", "\\n", "n\\x", "x"}) {
        const std::string text = std::string(length, 'x') + end;
        CAPTURE(text);
        checkText(call(session, kDecoding, {ascii(text)}), reference::mysqlDecoded(text), kEncodingASCII);
      }
    }
  }
}

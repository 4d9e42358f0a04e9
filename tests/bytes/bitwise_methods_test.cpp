/// The bitwise operations, as a program of the host calls them.
#include <limits>

#include "tests/support/methods.h"

using namespace testing;

namespace {

TEST_CASE("bitwise methods on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    checkText(call(session, "StringANDZQV", {raw("\xFF\x0F\xF0"), raw("\x3C")}), "\x3C\x0C\x30", kEncodingASCII);
    checkText(call(session, "StringORZQV", {utf8("AB"), raw("\x20\x20\0\0"sv)}), "ab", kEncodingASCII);
    checkText(call(session, "StringORZQV", {utf16(u"A"), raw("\x80")}), "\xC1\x80", kEncodingNone);
    checkText(call(session, "StringXORZQV", {ascii("abcd"), raw("\x01\x02"), 1}), "\x63\x63\x61\x65", kEncodingASCII);
    checkText(call(session, "StringXORZQV", {ascii("abcd"), raw("\x01\x02")}), "``bf", kEncodingASCII);
    checkText(call(session, "StringXOR2ZQV", {raw("\0\0\0\0"sv), raw("\0"sv)}), "\0\1\2\3"sv, kEncodingASCII);
  }
}

TEST_CASE("bitwise methods with an empty operand call nothing and give the empty string") {
  Session session;
  for (const char* method : {"StringANDZQV", "StringORZQV", "StringXORZQV", "StringXOR2ZQV"}) {
    CAPTURE(method);
    for (const Outcome& outcome :
         {call(session, method, {nullText(), raw("a")}), call(session, method, {raw("a"), nullText()})}) {
      checkNull(outcome);
      CHECK(outcome.services.empty());
    }
    checkNull(call(session, method, {raw(""), raw("a")}));
    checkNull(call(session, method, {raw("a"), raw("")}));
  }
}

TEST_CASE("mask offsets outside the mask") {
  Session session;
  const auto withOffset = [&](std::int32_t offset) {
    return call(session, "StringXORZQV", {ascii("abcd"), raw("\1\2\3"), offset}).text();
  };
  for (const std::int32_t offset : {0, 1, 2}) {
    CHECK(withOffset(offset + 3) == withOffset(offset));
    CHECK(withOffset(offset - 3) == withOffset(offset));
  }
  CHECK(withOffset(std::numeric_limits<std::int32_t>::max()) == withOffset(1));  // 2^31 - 1 = 3 * 715827882 + 1
  CHECK(withOffset(std::numeric_limits<std::int32_t>::min()) == withOffset(1));  // -2^31 = 3 * -715827883 + 1
}

TEST_CASE("applying XOR twice gives the data back") {
  Session session;
  const Text data = raw("\xFE any bytes at all \x01");
  for (const char* method : {"StringXORZQV", "StringXOR2ZQV"}) {
    const Outcome masked = call(session, method, {data, utf8("mask"), 5});
    CHECK(masked.text() != data);
    checkText(call(session, method, {masked.text(), utf8("mask"), 5}), data.bytes, kEncodingNone);
  }
}

}  // namespace

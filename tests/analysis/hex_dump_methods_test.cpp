/// Hex dumps, as a program of the host calls for them.
#include <limits>
#include <tuple>

#include "tests/reference/hex_dump.h"
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

constexpr char kHexstring[] = "HexstringZQV";
constexpr char kTooLong[] = "The hex dump would be too long for a string.";
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

TEST_CASE("dumps on every host, of the bytes as they are held") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    checkText(call(session, kHexstring, {utf8("é"), 2, 2, utf8("«"), ascii("|"), ascii(" "), nullText()}), "«C3 A9|",
              kEncodingASCII);
    checkText(call(session, kHexstring, {utf16(u"é"), 4, 3, raw(""), raw("\n"), raw("-"), utf8(".")}),
              "E900-....-....\n", kEncodingASCII);
    checkText(call(session, kHexstring, {raw("\xAB\0"sv), 3, 1, nullText(), raw("\xFF"), nullText(), ascii("xy")}),
              "AB0\xFF"
              "0xy\xFF",
              kEncodingASCII);
  }
}

TEST_CASE("dumps of every length stay within their buffers") {
  RandomBytes random(0x4455'4D50);
  for (const double version : {2015.03, 2023.1}) {
    Session session(Options{.version = version, .checking = true});
    for (std::size_t length = 1; length <= 600; length += 23) {
      CAPTURE(length);
      const std::string bytes = random(length);
      checkText(call(session, kHexstring, {raw(bytes), 2, 16, ascii("> "), ascii("\r\n"), ascii(" "), ascii("--")}),
                reference::hexDump(bytes, {2, 16, "> ", "\r\n", " ", "--"}), kEncodingASCII);
    }
  }
}

TEST_CASE("nothing is read without digits, groups or an input") {
  Session session;
  const Text text = ascii("text");
  for (const auto& [input, hexlen, linelen] :
       {std::tuple{nullText(), 2, 2}, {text, 0, 2}, {text, -1, 2}, {text, 2, 0}, {text, 2, -kLargest - 1}}) {
    const Outcome outcome = call(session, kHexstring, {input, hexlen, linelen, text, text, text, text});
    checkNull(outcome);
    CHECK(outcome.services.empty());
  }
  checkNull(call(session, kHexstring, {ascii(""), 2, 2, text, text, text, text}));
}

TEST_CASE("a dump that no string holds is an exception, before memory is asked for") {
  Session session;
  const Text none = nullText();
  const Text input = ascii("input");
  const Text wide = ascii(std::string(1'000'000, ' '));
  const std::vector<Argument> calls[] = {
      {input, kLargest, kLargest, none, none, none, none},            // digits of one line
      {input, 1'073'741'824, 2, none, none, none, none},              // 2^31 digits
      {input, 1, 3000, none, none, wide, none},                       // spacers
      {input, kLargest, kLargest, wide, wide, wide, none},            // more than 64 bits hold
      {ascii(std::string(1100, 'x')), 1, 1, wide, wide, none, none},  // frames
  };
  for (const auto& arguments : calls) {
    const Outcome outcome = call(session, kHexstring, arguments);
    checkRaised(outcome, "RuntimeException", kTooLong);
    CHECK(outcome.text() == nullText());
  }
}

}  // namespace

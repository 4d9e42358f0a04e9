/// The rewriting of booleans in SQL, as a program of the host calls for it.
#include "tests/reference/sql_booleans.h"
#include "tests/support/methods.h"
#include "tests/support/random_bytes.h"

using namespace testing;

namespace {

constexpr char kReplace[] = "SQLReplaceBooleanZQV";

TEST_CASE("statements in any encoding, on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    checkText(call(session, kReplace, {ascii("SET a = TRUE, b = false")}), "SET a = 1, b = 0", kEncodingUTF8);
    checkText(call(session, kReplace, {utf8("café = 'true', é true")}), "café = 'true', é 1", kEncodingUTF8);
    checkText(call(session, kReplace, {utf16(u"é = false")}), "é = 0", kEncodingUTF8);
    checkText(call(session, kReplace, {raw("\xA5true")}), "•1", kEncodingUTF8);  // no encoding: Mac Roman
    checkText(call(session, kReplace, {raw("true")}), "1", kEncodingUTF8);
    checkText(call(session, kReplace, {utf8("no keyword")}), "no keyword", kEncodingUTF8);
  }
}

TEST_CASE("a result ends before its first zero byte") {
  Session session;
  checkText(call(session, kReplace, {utf8("true\0true"sv)}), "1", kEncodingUTF8);
  checkText(call(session, kReplace, {utf8("'\0' true"sv)}), "'", kEncodingUTF8);
  checkText(call(session, kReplace, {utf8(std::string(500, ' ') + "false\0'"s)}), std::string(500, ' ') + "0",
            kEncodingUTF8);
  checkNull(call(session, kReplace, {utf8("\0true"sv)}));
  checkNull(call(session, kReplace, {utf8("")}));
}

TEST_CASE("the null string asks the host nothing; a text that can't be had is empty and no exception") {
  const Outcome outcome = call(Options{}, kReplace, {nullText()});
  checkNull(outcome);
  CHECK(outcome.services.empty());
  checkNull(call(Options{.without = {"PluginGetStringData"}}, kReplace, {utf8("true")}));
}

TEST_CASE("statements of every length are read to their end and no further") {
  RandomBytes random(0x5351'4C21);
  for (const double version : {2015.03, 2023.1}) {
    for (const bool terminated : {true, false}) {
      Session session(Options{.version = version, .terminated = terminated, .checking = true});
      for (std::size_t length = 1; length <= 300; length += 7) {
        const std::string sql = random.of("     ''", length) + "true";
        CAPTURE(sql);
        checkText(call(session, kReplace, {utf8(sql)}), reference::booleansReplaced(sql), kEncodingUTF8);
      }
    }
  }
}

}  // namespace

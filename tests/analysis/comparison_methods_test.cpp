/// Comparison and counting, as a program of the host calls them.
#include "tests/support/methods.h"

using namespace testing;

namespace {

std::int64_t result(Session& session, std::string_view method, const Text& a, const Text& b) {
  const Outcome outcome = call(session, method, {a, b});
  CHECK_FALSE(outcome.exception.has_value());
  return outcome.integer();
}

TEST_CASE("StrCompBytesZQV compares what is stored") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto order = [&](const Text& a, const Text& b) { return result(session, "StrCompBytesZQV", a, b); };
    CHECK(order(nullText(), nullText()) == 0);
    CHECK(order(nullText(), utf8("")) == 0);
    CHECK(order(nullText(), utf8("a")) == -1);
    CHECK(order(utf8("a"), nullText()) == 1);
    CHECK(order(utf8(""), raw("\0"sv)) == -1);  // the empty string comes before zero bytes
    CHECK(order(utf8("abc"), utf8("abd")) == -1);
    CHECK(order(utf8("abd"), raw("abc")) == 1);
    CHECK(order(raw("\x80"), raw("\x7F")) == 1);
    CHECK(order(utf8("abc"), utf8("abc\0"sv)) == 0);
    CHECK(order(utf8("é"), utf16(u"é")) != 0);
  }
}

TEST_CASE("StrCompCharactersZQV compares bytes in one encoding and characters in two") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto order = [&](const Text& a, const Text& b) { return result(session, "StrCompCharactersZQV", a, b); };
    CHECK(order(nullText(), nullText()) == 0);
    CHECK(order(utf8("a"), nullText()) == 1);
    CHECK(order(nullText(), utf16(u"a")) == -1);
    CHECK(order(utf8("é"), utf16(u"é")) == 0);
    CHECK(order(utf8("\uFFFF"), utf16(u"\U0001F600")) == -1);
    CHECK(order(utf16(u"\uFF5E"), utf16(u"\U0001F600")) == 1);  // 5E FF and 3D D8 00 DE in memory
    CHECK(order(raw("\xA5"), utf8("•")) == 0);                  // no encoding: Mac Roman
  }
  // The null string has no encoding; in two encodings the empty text counts as zero bytes.
  Session session;
  CHECK(result(session, "StrCompCharactersZQV", nullText(), utf8("\0\0"sv)) == 0);
}

TEST_CASE("StrCompCharactersZQV asks for both encodings, then opens both texts") {
  Session session;
  using Names = std::vector<std::string>;
  CHECK(call(session, "StrCompCharactersZQV", {nullText(), nullText()}).services ==
        Names{"REALGetStringEncoding", "REALGetStringEncoding"});
  const Names services = call(session, "StrCompCharactersZQV", {utf8("a"), utf16(u"a")}).services;
  const Names expected = {"REALGetStringEncoding", "REALGetStringEncoding", "REALGetStringEncoding",
                          "REALLockString",        "REALGetStringEncoding", "REALLockString",
                          "PluginGetStringData",   "PluginGetStringData"};
  REQUIRE(services.size() > expected.size());
  CHECK(Names(services.begin(), services.begin() + 8) == expected);
}

TEST_CASE("CountOccurancesZQV counts what is stored") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto count = [&](const Text& s, const Text& find) { return result(session, "CountOccurancesZQV", s, find); };
    CHECK(count(utf8("aaaa"), utf8("aa")) == 2);
    CHECK(count(utf8("banana"), raw("ana")) == 1);
    CHECK(count(utf8("ab"), utf8("abc")) == 0);
    CHECK(count(utf8("abc"), utf16(u"b")) == 0);
    CHECK(count(nullText(), utf8("a")) == 0);
    CHECK(count(utf8("abc"), utf8("")) == 0);
  }
  Session session;
  CHECK(call(session, "CountOccurancesZQV", {utf8("abc"), nullText()}).services.empty());  // nothing is even read
  CHECK(result(session, "CountOccurancesZQV", ascii(std::string(1'000'000, 'a')), ascii(std::string(500'000, 'a'))) ==
        2);
}

}  // namespace

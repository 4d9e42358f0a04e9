/// The distances, as a program of the host calls them.
#include <string>

#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kLevenshtein[] = "LevenshteinDistanceZQV";
constexpr char kJaroWinkler[] = "JaroWinklerDistanceZQV";

void checkNumber(const Outcome& outcome, double expected) {
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.number() == expected);
}

TEST_CASE("distances of code points, however the texts are encoded, on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    checkNumber(call(session, kLevenshtein, {utf8("saturday"), ascii("sunday")}), 0.5);
    checkNumber(call(session, kLevenshtein, {utf8("é"), utf16(u"e")}), 1.0);
    checkNumber(call(session, kLevenshtein, {utf8("\U0001F600b"), utf16(u"b\U0001F600")}), 0.5);
    checkNumber(call(session, kLevenshtein, {raw("\xA5"), utf8("•")}), 0.0);  // no encoding: Mac Roman
    checkNumber(call(session, kJaroWinkler, {utf8("é"), utf16(u"é")}), 0.0);
    CHECK(call(session, kJaroWinkler, {utf16(u"MARTHA"), ascii("MARHTA")}).number() ==
          doctest::Approx(0.0388888888888889));
  }
}

TEST_CASE("distances of empty texts") {
  Session session;
  for (const Text& empty : {nullText(), utf8("")}) {
    for (const Text& other : {nullText(), utf8("")}) {
      checkNumber(call(session, kLevenshtein, {empty, other}), 1.0);
      checkNumber(call(session, kJaroWinkler, {empty, other}), 0.0);
    }
    for (const char* method : {kLevenshtein, kJaroWinkler}) {
      checkNumber(call(session, method, {empty, utf8("abc")}), 1.0);
      checkNumber(call(session, method, {utf8("abc"), empty}), 1.0);
    }
  }
  const Options refusing{.without = {"PluginGetStringData"}};
  checkNumber(call(refusing, kLevenshtein, {utf8("abc"), utf8("abc")}), 1.0);
  checkNumber(call(refusing, kJaroWinkler, {utf8("abc"), utf8("abc")}), 0.0);
}

TEST_CASE("the first text is opened and converted before the second") {
  Session session;
  const Outcome outcome = call(session, kLevenshtein, {utf8("a"), utf8("b")});
  const std::vector<std::string> expected = {"REALGetStringEncoding", "REALLockString",      "REALGetStringEncoding",
                                             "REALLockString",        "PluginGetStringData", "PluginGetStringData"};
  REQUIRE(outcome.services.size() > expected.size());
  CHECK(std::vector<std::string>(outcome.services.begin(), outcome.services.begin() + 6) == expected);
}

TEST_CASE("the limit of Levenshtein is that of the whole matrix, equal ends or not") {
  Session session;
  const std::string side(23'169, 'a');
  checkNumber(call(session, kLevenshtein, {ascii(side), ascii(side)}), 0.0);
  struct Case {
    std::size_t n;
    std::size_t m;
    const char* message;
  };
  for (const Case& c : {Case{23'169, 23'170, "Failed to allocate 2147488280 bytes of memory."},
                        Case{100'000, 100'000, "Failed to allocate 40000800004 bytes of memory."}}) {
    const Outcome outcome = call(session, kLevenshtein, {ascii(std::string(c.n, 'a')), ascii(std::string(c.m, 'a'))});
    CHECK(outcome.number() == 1.0);
    checkRaised(outcome, "OutOfMemoryException", c.message);
  }
  const Outcome empty = call(session, kLevenshtein, {nullText(), ascii(std::string(1'000'000, 'a'))});
  checkNumber(empty, 1.0);
}

}  // namespace

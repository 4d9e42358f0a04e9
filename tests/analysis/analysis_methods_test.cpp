/// What the methods of the analysis do beside computing: what they ask the host for, and what they refuse.
#include <limits>
#include <tuple>

#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

void checkNumber(const Outcome& outcome, double expected) {
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.number() == expected);
}

TEST_CASE("comparison of strings in two encodings, and counting of a long one") {
  Session session;
  const auto integer = [&](const char* method, const Text& a, const Text& b) {
    return call(session, method, {a, b}).integer();
  };
  CHECK(integer("StrCompCharactersZQV", utf16(u"\uFF5E"), utf16(u"\U0001F600")) == 1);  // 5E FF, 3D D8 in memory
  CHECK(integer("StrCompCharactersZQV", utf8("\uFF5E"), utf16(u"\U0001F600")) == -1);
  CHECK(integer("CountOccurancesZQV", ascii(std::string(1'000'000, 'a')), ascii(std::string(500'000, 'a'))) == 2);
}

TEST_CASE("distances where a text is empty or refused") {
  Session session;
  for (const Text& empty : {nullText(), utf8("")}) {
    checkNumber(call(session, "LevenshteinDistanceZQV", {empty, empty}), 1.0);
    checkNumber(call(session, "JaroWinklerDistanceZQV", {empty, empty}), 0.0);
    for (const char* method : {"LevenshteinDistanceZQV", "JaroWinklerDistanceZQV"}) {
      checkNumber(call(session, method, {empty, ascii(std::string(1'000'000, 'a'))}), 1.0);
    }
  }
  const Options refusing{.without = {"PluginGetStringData"}};
  checkNumber(call(refusing, "LevenshteinDistanceZQV", {utf8("abc"), utf8("abc")}), 1.0);
  checkNumber(call(refusing, "JaroWinklerDistanceZQV", {utf8("abc"), utf8("abc")}), 0.0);
}

TEST_CASE("the limit of Levenshtein is that of the whole matrix, equal ends or not") {
  Session session;
  const auto distance = [&](std::size_t n, std::size_t m) {
    return call(session, "LevenshteinDistanceZQV", {ascii(std::string(n, 'a')), ascii(std::string(m, 'a'))});
  };
  checkNumber(distance(23'169, 23'169), 0.0);
  for (const auto& [n, m, message] : {std::tuple{23'169, 23'170, "Failed to allocate 2147488280 bytes of memory."},
                                      {100'000, 100'000, "Failed to allocate 40000800004 bytes of memory."}}) {
    const Outcome outcome = distance(static_cast<std::size_t>(n), static_cast<std::size_t>(m));
    CHECK(outcome.number() == 1.0);
    checkRaised(outcome, "OutOfMemoryException", message);
  }
}

TEST_CASE("HexstringZQV reads nothing without digits, groups or an input") {
  Session session;
  const Text text = ascii("text");
  for (const auto& [input, hexlen, linelen] :
       {std::tuple{nullText(), 2, 2}, {text, 0, 2}, {text, -1, 2}, {text, 2, 0}, {text, 2, -kLargest - 1}}) {
    const Outcome outcome = call(session, "HexstringZQV", {input, hexlen, linelen, text, text, text, text});
    checkNull(outcome);
    CHECK(outcome.services.empty());
  }
}

TEST_CASE("a dump that no string holds is an exception, before memory is asked for") {
  Session session;
  const Text none = nullText();
  const Text input = ascii("input");
  const Text wide = ascii(std::string(1'000'000, ' '));
  const std::vector<Argument> calls[] = {
      {input, kLargest, kLargest, none, none, none, none},            // digits of one line
      {input, 1, 3000, none, none, wide, none},                       // spacers
      {input, kLargest, kLargest, wide, wide, wide, none},            // more than 64 bits hold
      {ascii(std::string(1100, 'x')), 1, 1, wide, wide, none, none},  // frames
  };
  for (const auto& arguments : calls) {
    const Outcome outcome = call(session, "HexstringZQV", arguments);
    checkRaised(outcome, "RuntimeException", "The hex dump would be too long for a string.");
    CHECK(outcome.text() == nullText());
  }
}

TEST_CASE("byte-order marks are built as units of their encoding") {
  using Services = std::vector<std::string>;
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    const auto get = [&](std::int32_t kind) { return call(session, "GetUnicodeMarkersZQV", {kind}); };
    // This host keeps marks, and reads text behind a reversed one in the other order.
    for (const std::int32_t kind : {1, 2, 3, 4, 5, 7}) checkText(get(kind), "\xEF\xBB\xBF", kEncodingUTF8);
    checkText(get(6), version < 2013.0 ? "\xEF\xBF\xBD" : "\xEF\xBB\xBF", kEncodingUTF8);
    for (const std::int32_t kind : {0, -1, 8, 257}) checkNull(get(kind));
    if (version < 2013.0) continue;
    CHECK(get(0).services == Services{});
    CHECK(get(1).services == Services{"REALBuildString", "REALSetStringEncoding"});
    CHECK(get(6).services == Services{"REALBuildStringWithEncoding", "REALConvertString", "REALUnlockString"});
  }
}

}  // namespace

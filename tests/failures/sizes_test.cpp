/// Sizes at the limits. Arguments are stretched: they take address space, but hardly any memory.
#include <algorithm>

#include "standin/repeated_memory.h"
#include "tests/failures/failing_memory.h"
#include "tests/support/methods.h"

using namespace testing;
using failing_memory::Plan;
using failing_memory::Shortage;

namespace {

constexpr std::int64_t kMost = INT32_MAX;

Text stretched(Text text, std::int64_t size) {
  text.stretchedTo = static_cast<std::size_t>(size);
  return text;
}

/// A host that hands forms out with something else than zero behind them.
const Options kUnterminated{.version = 2023.1, .terminated = false};

struct Limit {
  const char* method;
  std::vector<Argument> arguments;  ///< the first one is stretched
  std::int64_t last;                ///< the size that is still accepted
  std::int64_t step = 1;            ///< to the one that isn't; 0 where every size is
  Options host = {.version = 2023.1};
};

Outcome callWithout(const Limit& limit, std::int64_t size, std::int64_t& allocations) {
  Session session(limit.host);
  std::vector<Argument> arguments = limit.arguments;
  arguments[0] = stretched(std::get<Text>(arguments[0]), size);
  const Shortage shortage(Plan{0, true});
  Outcome outcome = session.call(limit.method, arguments);
  allocations = shortage.allocations();
  return outcome;
}

const Limit kLimits[] = {
    {"EncodingToHexZQV", {raw("a")}, 0x3FFF'FFFF},
    {"EncodingToURLZQV", {raw("a")}, 715'827'879},
    {"EncodingToURLZQV", {raw("a"), 1}, 715'827'879},
    {"StringANDZQV", {raw("a"), raw("xyz")}, kMost - 5},
    {"StringORZQV", {raw("a"), raw("xyz")}, kMost - 5},
    {"StringXORZQV", {raw("a"), raw("xyz"), -1}, kMost - 5},
    {"StringXOR2ZQV", {raw("a"), raw("xyz"), 5}, kMost - 5},
    {"ConcatBinaryStringsZQV", {raw("a"), raw("b")}, kMost - 11},
    {"ConcatBinaryStringsZQV", {raw("a"), raw("b"), raw("c")}, kMost - 12},
    {"ConcatBinaryStringsZQV", {raw("a"), raw("b"), raw("c"), raw("d")}, kMost - 13},
    {"ConcatBinaryStringsZQV", {raw("a"), raw("b"), raw("c"), raw("d"), raw("e")}, kMost - 14},
    {"ConcatBinaryStringsZQV", {raw("a"), raw("b"), raw("c"), raw("d"), raw("e"), raw("f")}, kMost - 15},
    {"EncodingToISO8859ZQV", {ascii("a")}, 1'073'741'816, 1},
    {"EncodingToCP1252ZQV", {ascii("a")}, 1'073'741'816, 1},
    {"DecodingFromISO8859ZQV", {raw("a")}, 1'073'741'807},
    {"DecodingFromCP1252ZQV", {raw("a")}, 1'073'741'807},
    // What counts as copied for its terminator has the limit of the copy.
    {"DecodingFromHexZQV", {utf8("a")}, kMost - 4, 1, kUnterminated},
    {"RemoveHTMLTagsZQV", {utf8("<a>")}, kMost - 4, 3, kUnterminated},
    {"EncodingToHTMLZQV", {ascii("&")}, 536'870'910, 1, kUnterminated},
    {"EncodingToXMLZQV", {ascii("&")}, 536'870'910, 1, kUnterminated},
    {"DecodingFromHTMLZQV", {ascii("&")}, 536'870'910, 1, kUnterminated},
    {"DecodingFromXMLZQV", {ascii("&")}, 536'870'910, 1, kUnterminated},
    // No limit but that of every string.
    {"DecodingFromURLZQV", {raw("a")}, kMost, 0},
    {"DecodingFromMySQLZQV", {raw("a")}, kMost, 0},
    {"_yDecodeStringZQV", {raw("a")}, kMost, 0},
    {"ReplaceNonPrintableCharactersZQV", {raw("\a")}, kMost, 0},
    {"EncodingToQuotedPrintableZQV", {raw("="), INT32_MAX}, 715'827'881},
    {"DecodingFromQuotedPrintableZQV", {raw("a")}, kMost, 0},
    {"DecodingFromHexZQV", {utf8("a")}, kMost, 0},
};

struct Report {
  const char* method;
  std::vector<Argument> arguments;
  std::string_view className;
  const char* message;
};

const Text kNone = raw("");
constexpr std::string_view kOutOfMemory = "OutOfMemoryException";

/// What is reported before memory is asked for, and what when it is refused.
const Report kReports[] = {
    {"HexstringZQV",
     {stretched(raw("a"), kMost / 2), 2, 1, kNone, kNone, kNone, kNone},
     kOutOfMemory,
     "Failed to allocate memory."},
    {"HexstringZQV",
     {stretched(raw("a"), kMost / 2 + 1), 2, 1, kNone, kNone, kNone, kNone},
     "RuntimeException",
     "The hex dump would be too long for a string."},
    {"LevenshteinDistanceZQV",
     {stretched(ascii("a"), 23'170), stretched(ascii("b"), 23'169)},
     kOutOfMemory,
     "Failed to allocate 2147488280 bytes of memory."},
    {"LevenshteinDistanceZQV",
     {stretched(ascii("a"), kMost / 4), stretched(ascii("b"), kMost / 4)},
     kOutOfMemory,
     "Failed to allocate 1152921504606846976 bytes of memory."},
    {"JaroWinklerDistanceZQV",
     {stretched(ascii("a"), kMost / 4), stretched(ascii("b"), kMost / 4 - 1)},
     kOutOfMemory,
     "Failed to allocate 536870911 bytes of memory."},
};

/// A long text made of the same few bytes, told from another without a second one.
bool repeats(std::string_view whole, std::string_view bytes, std::int64_t size) {
  return std::ssize(whole) == size && whole.starts_with(bytes) &&
         whole.substr(bytes.size()) == whole.substr(0, whole.size() - bytes.size());
}

}  // namespace

TEST_CASE("below its limit a method asks for memory, from there on it gives up without" *
          doctest::skip(!RepeatedMemory::isOffered())) {
  for (const Limit& limit : kLimits) {
    CAPTURE(std::string(limit.method));
    CAPTURE(limit.last);
    std::int64_t allocations = 0;
    const Outcome last = callWithout(limit, limit.last, allocations);
    CHECK(allocations > 0);
    CHECK(violationsOf(last) == "");
    CHECK(last.text() == nullText());
    if (limit.step == 0) continue;
    const Outcome beyond = callWithout(limit, limit.last + limit.step, allocations);
    CHECK(allocations == 0);
    CHECK(violationsOf(beyond) == "");
    checkNull(beyond);
  }
}

TEST_CASE("sizes beyond a limit are reported in full" * doctest::skip(!RepeatedMemory::isOffered())) {
  for (const Report& report : kReports) {
    CAPTURE(std::string(report.method));
    Session session;
    const bool isRefused = report.className == kOutOfMemory;  // an error in the making takes some memory itself
    const Shortage shortage(isRefused ? Plan{0, true} : Plan{});
    checkRaised(call(session, report.method, report.arguments), report.className, report.message);
  }
}

TEST_CASE("a text without an encoding is read as Mac Roman as long as it leaves room for a terminator" *
          doctest::skip(!RepeatedMemory::isOffered())) {
  for (const std::int64_t size : {0x7FFF'FFFB, 0x7FFF'FFFC}) {
    Session session(Options{.failing = {{"REALBuildString", 1}}});
    const Outcome outcome = call(session, "EncodingToXMLZQV", {stretched(raw("\xE9"), size)});
    checkNull(outcome);
    CHECK(std::count(outcome.services.begin(), outcome.services.end(), "REALBuildString") == (size < 0x7FFF'FFFC));
  }
}

// From here on gigabytes are read and written; these are run on demand.

TEST_SUITE("huge" * doctest::skip()) {
  TEST_CASE("the longest results") {
    struct Case {
      const char* method;
      std::vector<Argument> arguments;
      const char* bytes;
      std::int64_t size;
    };
    const Case cases[] = {
        {"EncodingToHexZQV", {stretched(raw("a"), 0x3FFF'FFFF)}, "61", 0x7FFF'FFFE},
        {"EncodingToURLZQV", {stretched(raw("="), 715'827'879)}, "%3D", 2'147'483'637},
        {"EncodingToQuotedPrintableZQV", {stretched(raw("="), 715'827'881), INT32_MAX}, "=3D", 2'147'483'643},
        {"EncodingToHTMLZQV", {stretched(ascii("&"), 429'496'729)}, "&amp;", 2'147'483'645},
        {"StringXORZQV", {stretched(raw("ab"), kMost - 5), raw("  ")}, "AB", kMost - 5},
        {"ConcatBinaryStringsZQV", {stretched(raw("ab"), kMost - 11), raw("a")}, "ab", kMost - 10},
        {"DecodingFromURLZQV", {stretched(raw("ab"), kMost)}, "ab", kMost},
        {"DecodingFromMySQLZQV", {stretched(raw("ab"), kMost)}, "ab", kMost},
        {"_yDecodeStringZQV", {stretched(raw("kl"), kMost)}, "AB", kMost},
        {"ReplaceNonPrintableCharactersZQV", {stretched(raw("\a"), kMost)}, ".", kMost},
        {"RemoveHTMLTagsWithZQV", {stretched(utf8("<a"), kMost), utf8("ab")}, "ab", kMost - 1},
        {"SQLReplaceBooleanZQV", {stretched(utf8("a"), kMost)}, "a", kMost},
    };
    for (const Case& c : cases) {
      Session session;
      const Outcome outcome = call(session, c.method, c.arguments);
      CAPTURE(std::string(c.method));
      CHECK_FALSE(outcome.exception.has_value());
      CHECK(repeats(outcome.text().bytes, c.bytes, c.size));
    }
  }

  TEST_CASE("results that would be longer are empty, and nothing is raised") {
    struct Case {
      const char* method;
      std::vector<Argument> arguments;
    };
    const Case cases[] = {
        {"EncodingToHTMLZQV", {stretched(ascii("&"), 429'496'730)}},
        {"EncodingToHTMLZQV", {stretched(ascii("&"), kMost / 4)}},
        {"EncodingToXMLZQV", {stretched(ascii("&"), kMost / 4)}},
        {"RemoveHTMLTagsWithZQV", {stretched(utf8("<a"), kMost), utf8("abc")}},
        {"RemoveHTMLTagsWithZQV", {stretched(utf8("<a"), kMost), stretched(utf8("a"), kMost)}},
        {"EncodeEmailSubjectZQV", {stretched(utf8("\u00E9"), kMost - 1)}},
        {"EncodingToQuotedPrintableZQV", {stretched(raw("a"), kMost)}},
    };
    for (const Case& c : cases) {
      Session session;
      CAPTURE(std::string(c.method));
      checkNull(call(session, c.method, c.arguments));
    }
  }

  TEST_CASE("the longest memory block is one byte shorter than the longest string") {
    Block data = block("kl");
    for (const std::size_t size : {0x7FFF'FFFEU, 0x7FFF'FFFFU}) {
      data.stretchedTo = size;
      Session session;
      const Outcome outcome = call(session, "_yDecodeMemoryZQV", {data});
      CHECK(outcome.exception.has_value() == (size == 0x7FFF'FFFF));
      if (outcome.exception) {
        CHECK(outcome.exception->message == "Failed to allocate a memoryblock with 2147483647 bytes in size.");
      } else {
        CHECK(repeats(outcome.block().bytes, "AB", static_cast<std::int64_t>(size)));
      }
    }
  }

  TEST_CASE("the longest texts are compared, counted in and tested") {
    const Text text = stretched(ascii("ab"), kMost);
    const Text other = stretched(ascii("ab"), kMost - 1);
    Session session;
    CHECK(call(session, "StrCompBytesZQV", {text, text}).integer() == 0);
    CHECK(call(session, "StrCompBytesZQV", {other, text}).integer() == -1);
    CHECK(call(session, "StrCompCharactersZQV", {text, other}).integer() == 1);
    CHECK(call(session, "CountOccurancesZQV", {text, ascii("ab")}).integer() == kMost / 2);
    CHECK(call(session, "CountOccurancesZQV", {text, ascii("a")}).integer() == kMost / 2 + 1);
    CHECK(call(session, "CountOccurancesZQV", {text, text}).integer() == 1);
    CHECK(call(session, "IsASCIIStringZQV", {text}).boolean());
    CHECK(call(session, "StringIsHTMLreadyZQV", {text}).boolean());
    CHECK(call(session, "StringIsXMLreadyZQV", {text}).boolean());
    CHECK(call(session, "DetectUnicodeMarkersZQV", {text}).integer() == 0);
  }
}

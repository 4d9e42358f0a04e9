/// Every allocation of every method fails once, and from each one on all of them.
#include <map>
#include <optional>
#include <set>

#include "tests/failures/calls.h"
#include "tests/failures/failing_memory.h"
#include "tests/support/methods.h"

using namespace testing;
using failing_memory::Plan;
using failing_memory::Shortage;

namespace {

const Raised kStandard{"OutOfMemoryException", "Failed to allocate memory.", 0};

const std::set<std::string> kRaising = {"EncodingToHTMLZQV",     "DecodingFromHTMLZQV", "DecodingFromXMLZQV",
                                        "EncodingToXMLZQV",      "HexstringZQV",        "RemoveHTMLTagsZQV",
                                        "RemoveHTMLTagsWithZQV", "SQLReplaceBooleanZQV"};

/// How the messages begin of those that report in their own words.
const std::map<std::string, std::string> kOwnMessages = {
    {"LevenshteinDistanceZQV", "Failed to allocate "},
    {"JaroWinklerDistanceZQV", "Failed to allocate "},
    {"_yDecodeMemoryZQV", "Failed to allocate a memoryblock with "},
};

bool isAllowed(const std::string& method, const Raised& raised) {
  if (kRaising.contains(method)) return raised == kStandard;
  const auto own = kOwnMessages.find(method);
  return own != kOwnMessages.end() && raised.className == kStandard.className && raised.errorNumber == 0 &&
         raised.message.starts_with(own->second);
}

bool isEmptyResult(const std::string& method, const Outcome& outcome) {
  if (const auto* text = std::get_if<Text>(&outcome.result)) return text->null;
  if (const auto* value = std::get_if<Block>(&outcome.result)) return value->nil;
  if (method == "LevenshteinDistanceZQV") return outcome.number() == 1.0;
  // A text that could not be copied is empty: equal to another such one, and as far as can be from any other.
  if (method == "JaroWinklerDistanceZQV") {
    return outcome.number() == 0.0 || (!outcome.exception && outcome.number() == 1.0);
  }
  return false;
}

struct Tally {
  int methodsThatAllocate = 0;
  int failures = 0;
  int raised = 0;
};

/// Calls a method with each of its allocations failing.
void exhaust(Session& session, const Method& method, Tally& tally) {
  const std::string& name = method.declaration.name;
  const std::vector<Argument> arguments = failures::argumentsFor(method);
  const Outcome normal = session.call(method, arguments);
  std::int64_t allocations = 0;
  {
    const Shortage shortage;
    (void)session.call(method, arguments);
    allocations = shortage.allocations();
  }
  tally.methodsThatAllocate += allocations > 0;
  const int raisedBefore = tally.raised;
  for (std::int64_t first = 0; first < allocations; ++first) {
    for (const bool andAllAfter : {false, true}) {
      Outcome outcome;
      {
        const Shortage shortage(Plan{first, andAllAfter});
        outcome = session.call(method, arguments);
      }
      CAPTURE(name);
      CAPTURE(first);
      CAPTURE(andAllAfter);
      CHECK(violationsOf(outcome) == "");
      CHECK((outcome.result == normal.result || isEmptyResult(name, outcome)));
      if (outcome.exception) CHECK(isAllowed(name, *outcome.exception));
      ++tally.failures;
      tally.raised += outcome.exception.has_value();
    }
  }
  if (kRaising.contains(name)) CHECK(tally.raised > raisedBefore);  // the method's own memory is no silent matter
  if (name != "RandomBytesStringZQV") CHECK((session.call(method, arguments).result == normal.result));
}

}  // namespace

TEST_CASE("whatever allocation fails, methods give what they promise and go on working") {
  const Options hosts[] = {
      {.version = 2011.04},
      {.version = 2011.04, .byteOrderMark = true, .swapped = true, .oddStorage = true},
      {.version = 2015.02, .failing = {{"PluginGetStringData", 1}}},
      {.version = 2015.02},
      {.version = 2023.1, .byteOrderMark = true, .swapped = true},
      {.version = 2023.1},
  };
  Tally tally;
  for (const Options& host : hosts) {
    Session session(host);
    CAPTURE(host.version);
    for (const Method& method : session.methods()) exhaust(session, method, tally);
  }
  MESSAGE(tally.failures << " failed allocations, of which " << tally.raised << " were reported as exceptions");
  CHECK(tally.methodsThatAllocate > 6 * 25);
  CHECK(tally.raised > 6 * 11);
}

TEST_CASE("without memory at the start nothing is registered, and nothing crashes") {
  for (const double version : {2011.04, 2023.1}) {
    std::int64_t allocations = 0;
    {
      const Shortage shortage;
      const Session session(Options{.version = version});
      allocations = shortage.allocations();
    }
    int withoutMethods = 0;
    for (std::int64_t first = 0; first < allocations; ++first) {
      for (const bool andAllAfter : {false, true}) {
        std::optional<Session> session;
        {
          const Shortage shortage(Plan{first, andAllAfter});
          session.emplace(Options{.version = version});
        }
        CHECK((session->methods().empty() || session->methods().size() == 50));
        CHECK(violationsOf(session->start()) == "");
        withoutMethods += session->methods().empty();
      }
    }
    CHECK((withoutMethods > 0) == (version >= 2013.0));  // one by one takes no memory
  }
}

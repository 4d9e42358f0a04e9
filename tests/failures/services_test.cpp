/// Every service of the host fails at each of its calls in turn.
#include <map>

#include "tests/failures/calls.h"
#include "tests/support/methods.h"

using namespace testing;

namespace {

/// A failing count can't leave the accounts balanced, and its failure can't be noticed by the plugin.
bool countsReferences(const std::string& service) {
  return service.find("ock") != std::string::npos ? service.starts_with("REAL") : service == "PluginDisposeStringData";
}

/// Calls every method once. What the plugin did wrong, a line for each finding.
std::string violationsOfAllMethods(const Options& options) {
  Session session(options);
  std::string lines;
  for (const Method& method : session.methods()) {
    const Outcome outcome = session.call(method, failures::argumentsFor(method, 60));
    if (!outcome.balanced) lines += method.declaration.name + ": " + violationsOf(outcome);
  }
  return lines;
}

}  // namespace

TEST_CASE("whichever service is missing or fails, every method returns and keeps its accounts") {
  for (const double version : {2011.04, 2012.0, 2015.02, 2023.1}) {
    for (const std::string service : kServiceNames) {
      if (service.starts_with("PluginRegister")) continue;
      const std::string missing = violationsOfAllMethods({.version = version, .without = {service}});
      const std::string failing = violationsOfAllMethods({.version = version, .failing = {{service, 0}}});
      if (countsReferences(service)) continue;
      CAPTURE(version);
      CAPTURE(service);
      CHECK(missing == "");
      CHECK(failing == "");
    }
  }
}

TEST_CASE("a host that hands out no text, or takes none, gets null strings and no exceptions") {
  const Options hosts[] = {
      {.failing = {{"REALBuildString", 0}, {"REALBuildStringWithEncoding", 0}, {"REALConvertString", 0}}},
      {.without = {"REALBuildString", "REALBuildStringWithEncoding", "REALConvertString"}},
  };
  for (const Options& options : hosts) {
    Session session(options);
    for (const Method& method : session.methods()) {
      const Outcome outcome = session.call(method, failures::argumentsFor(method, 60));
      CAPTURE(method.declaration.name);
      if (method.declaration.result == Type::kString) checkNull(outcome);
    }
  }
}

TEST_CASE("whichever call of a service fails, methods return, keep their accounts and go on working") {
  int failures = 0;
  for (const double version : {2011.04, 2015.02, 2023.1}) {
    Session reference(Options{.version = version});
    for (const Method& method : reference.methods()) {
      const std::vector<Argument> arguments = failures::argumentsFor(method);
      const Outcome normal = reference.call(method, arguments);
      std::map<std::string, int> calls;
      for (const std::string& service : normal.services) ++calls[service];
      for (const auto& call : calls) {
        const std::string& service = call.first;
        if (countsReferences(service)) continue;
        for (int nth = 1; nth <= call.second; ++nth) {
          Session session(Options{.version = version, .failing = {{service, nth}}});
          const Method& same = session.method(method.declaration.name, arguments.size());
          const Outcome outcome = session.call(same, arguments);
          CAPTURE(version);
          CAPTURE(method.declaration.name);
          CAPTURE(service);
          CAPTURE(nth);
          CHECK(violationsOf(outcome) == "");
          if (method.declaration.name != "RandomBytesStringZQV") {
            CHECK((session.call(same, arguments).result == normal.result));
          }
          ++failures;
        }
      }
    }
  }
  MESSAGE(failures << " failed services");
  CHECK(failures > 300);
}

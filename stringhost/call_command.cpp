#include "stringhost/call_command.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <istream>
#include <limits>
#include <nlohmann/json.hpp>
#include <ostream>

#include "standin/session.h"
#include "stringhost/arguments.h"
#include "stringhost/explain.h"
#include "stringhost/list.h"
#include "stringhost/nearest.h"
#include "stringhost/output.h"
#include "stringhost/plugin_file.h"
#include "stringhost/printable.h"
#include "stringhost/progress.h"
#include "stringhost/stringhost.h"
#include "stringhost/timing.h"
#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

/// "3", "1 or 2", "2 to 6": how many arguments the overloads of a method take.
std::string countsOf(const std::vector<const standin::Method*>& overloads) {
  std::size_t least = std::numeric_limits<std::size_t>::max();
  std::size_t most = 0;
  for (const standin::Method* overload : overloads) {
    std::size_t count = overload->declaration.parameters.size();
    most = std::max(most, count);
    while (count > 0 && overload->declaration.accepts(count - 1)) --count;
    least = std::min(least, count);
  }
  if (least == most) return std::to_string(least) + (least == 1 ? " argument" : " arguments");
  return std::to_string(least) + (most - least == 1 ? " or " : " to ") + std::to_string(most) + " arguments";
}

/// The overload a call means. Case doesn't matter in the host's language.
const standin::Method& find(const standin::Session& session, const CommandLine& line) {
  std::vector<const standin::Method*> overloads;
  const standin::Method* best = nullptr;
  for (const standin::Method& method : session.methods()) {
    const standin::Declaration& declaration = method.declaration;
    if (!isSameName(declaration.name, line.method)) continue;
    overloads.push_back(&method);
    const bool isBetter = best == nullptr || declaration.parameters.size() < best->declaration.parameters.size();
    if (declaration.accepts(line.arguments.size()) && isBetter) best = &method;
  }
  if (best != nullptr) return *best;
  if (session.methods().empty()) throw UsageError("the plugin registered no method with this host");
  if (overloads.empty()) refuseUnknown("method", line.method, namesOf(session), "stringhost list shows all");
  const std::string& name = overloads.front()->declaration.name;
  throw UsageError(name + " takes " + countsOf(overloads) + ", not " + std::to_string(line.arguments.size()),
                   "stringhost help " + name + " says which");
}

/// The session of a call, in the host that the command line describes.
standin::Session sessionOf(const CommandLine& line, bool logs) {
  return standin::Session(pluginFile(line),
                          {.version = line.hostVersion, .without = line.without, .logs = logs, .loadsInPlace = true});
}

/// Without one of these no plugin can drop what it took, or it drops what it could not take.
bool withholdsReferences(const CommandLine& line) {
  constexpr std::array<std::string_view, 5> kCounting = {"REALLockString", "REALUnlockString", "REALLockObject",
                                                         "REALUnlockObject", "PluginDisposeStringData"};
  return std::find_first_of(line.without.begin(), line.without.end(), kCounting.begin(), kCounting.end()) !=
         line.without.end();
}

int report(std::ostream& err, const standin::Outcome& outcome, const CommandLine& line) {
  const bool isExcused = withholdsReferences(line);
  if (isExcused && !outcome.balanced) {
    err << "stringhost: references don't balance, as they cannot with the services this host is without\n";
  }
  for (const std::string& violation : outcome.violations) {
    if (!isExcused) err << "stringhost: the plugin broke a rule of the host: " << visible(violation) << '\n';
  }
  if (const auto& raised = outcome.exception) {
    err << visible(raised->className) << ": " << visible(raised->message) << '\n';
  }
  if (!outcome.balanced && !isExcused) return kUnbalanced;
  return outcome.exception ? kRaised : kDone;
}

std::vector<standin::Argument> readArguments(const standin::Method& method, const CommandLine& line,
                                             const Streams& streams) {
  const Progress progress(streams.err, "reading the arguments", streams.watched);
  return parseArguments(method.declaration, line.arguments, {streams.in, line.encoding});
}

/// Prints the result; one that isn't there, as the method raised an exception, has a form in JSON only.
void printResult(const Streams& streams, const standin::Outcome& outcome, standin::Type type, const Timing& timing,
                 const CommandLine& line) {
  if (line.output == Form::kJson) {
    nlohmann::ordered_json json = jsonOf(outcome, type);
    if (line.repeat) json["timing"] = jsonOf(timing);
    streams.out << dumped(json, streams.terminal) << '\n';
  } else if (!outcome.exception) {
    print(streams.out, outcome, line.output, streams.terminal);
  }
  streams.out.flush();
}

void printTiming(std::ostream& err, const Timing& timing) {
  const auto whole = [](double nanoseconds) { return std::llround(nanoseconds); };
  err << timing.count() << (timing.count() == 1 ? " call, " : " calls, ") << whole(timing.mean()) << " ns each";
  if (timing.count() > 1) {
    err << " \u00B1 " << whole(timing.deviation()) << " (" << whole(timing.least()) << " to " << whole(timing.most())
        << ")";
  }
  err << ", the host's work included\n";
}

}  // namespace

int call(const CommandLine& line, const Streams& streams) {
  standin::Session session = sessionOf(line, false);
  const standin::Method& method = find(session, line);
  const auto arguments = readArguments(method, line, streams);

  standin::Outcome outcome;
  Timing timing;
  {
    const int rounds = line.repeat.value_or(1);
    const bool isExcused = withholdsReferences(line);
    Progress progress(streams.err, "calling " + method.declaration.name, streams.watched, rounds);
    for (int round = 0; round < rounds && (outcome.balanced || isExcused); ++round) {
      using Clock = std::chrono::steady_clock;
      const Clock::time_point start = Clock::now();
      outcome = session.call(method, arguments);
      timing.add(std::chrono::duration<double, std::nano>(Clock::now() - start).count());
      progress.advance();
    }
  }

  printResult(streams, outcome, method.declaration.result, timing, line);
  if (line.repeat) printTiming(streams.err, timing);
  return report(streams.err, outcome, line);
}

int explainCall(const CommandLine& line, const Streams& streams) {
  standin::Session session = sessionOf(line, true);
  const standin::Method& method = find(session, line);
  const auto arguments = readArguments(method, line, streams);
  const standin::Outcome outcome = [&] {
    const Progress progress(streams.err, "calling " + method.declaration.name, streams.watched);
    return session.call(method, arguments);
  }();
  explain(streams.out, method, arguments, outcome, line.asJson, streams.terminal);
  streams.out.flush();
  return report(streams.err, outcome, line);
}

}  // namespace stringhost

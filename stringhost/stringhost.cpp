#include "stringhost/stringhost.h"

#include <chrono>
#include <cmath>
#include <istream>
#include <new>
#include <ostream>
#include <stdexcept>

#include "standin/session.h"
#include "stringhost/arguments.h"
#include "stringhost/command_line.h"
#include "stringhost/executable.h"
#include "stringhost/explain.h"
#include "stringhost/list.h"
#include "stringhost/nearest.h"
#include "stringhost/progress.h"
#include "stringhost/reference_command.h"
#include "stringhost/timing.h"
#include "stringhost/tour.h"
#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

namespace fs = std::filesystem;

/// The plugin built, unpacked or installed beside this program.
fs::path neighbour() {
#ifdef _WIN32
  const fs::path name = "StringPlugin.dll";
#else
  const fs::path name = "StringPlugin.so";
#endif
  const fs::path folder = executableFolder();
  for (const fs::path& candidate : {folder / name, folder.parent_path() / name, folder.parent_path() / "lib" / name}) {
    std::error_code failure;
    if (fs::is_regular_file(candidate, failure)) return candidate;
  }
  throw UsageError("no " + name.string() + " beside this program", "name a plugin with --plugin FILE");
}

fs::path pluginOf(const CommandLine& line) {
  return line.plugin.empty() ? neighbour() : fs::path(std::u8string(line.plugin.begin(), line.plugin.end()));
}

/// The overload a call means. Case doesn't matter in the host's language.
const standin::Method& find(const standin::Session& session, const CommandLine& line) {
  const standin::Method* best = nullptr;
  std::string overloads;
  std::vector<std::string> names;
  for (const standin::Method& method : session.methods()) {
    const standin::Declaration& declaration = method.declaration;
    names.push_back(declaration.name);
    if (!isSameName(declaration.name, line.method)) continue;
    overloads += (overloads.empty() ? "" : "; ") + std::string(method.entry.declaration);
    const bool isBetter = best == nullptr || declaration.parameters.size() < best->declaration.parameters.size();
    if (declaration.accepts(line.arguments.size()) && isBetter) best = &method;
  }
  if (best != nullptr) return *best;
  if (overloads.empty()) throw UsageError("no such method: " + line.method, hintFor(line.method, names));
  const std::size_t count = line.arguments.size();
  throw UsageError(std::to_string(count) + (count == 1 ? " argument doesn't" : " arguments don't") + " fit " +
                   overloads);
}

int report(std::ostream& err, const standin::Outcome& outcome) {
  for (const std::string& violation : outcome.violations) {
    err << "stringhost: the plugin broke a rule of the host: " << violation << '\n';
  }
  if (outcome.exception) err << outcome.exception->className << ": " << outcome.exception->message << '\n';
  if (!outcome.balanced) return kUnbalanced;
  return outcome.exception ? kRaised : kDone;
}

std::vector<standin::Argument> readArguments(const standin::Method& method, const CommandLine& line, std::istream& in,
                                             std::ostream& err, bool watched) {
  const Progress progress(err, "reading the arguments", watched);
  return parseArguments(method.declaration, line.arguments, {in, line.encoding});
}

int call(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err, bool terminal, bool watched) {
  standin::Session session(pluginOf(line),
                           {.version = line.hostVersion, .without = line.without, .logs = false, .loadsInPlace = true});
  const standin::Method& method = find(session, line);
  const auto arguments = readArguments(method, line, in, err, watched);

  standin::Outcome outcome;
  Timing timing;
  {
    Progress progress(err, "calling " + method.declaration.name, watched, line.repeat);
    for (int round = 0; round < line.repeat && outcome.balanced; ++round) {
      using Clock = std::chrono::steady_clock;
      const Clock::time_point start = Clock::now();
      outcome = session.call(method, arguments);
      timing.add(std::chrono::duration<double, std::nano>(Clock::now() - start).count());
      progress.advance();
    }
  }

  const bool isResult = !outcome.exception || line.output == Form::kJson;
  if (isResult) print(out, outcome, method.declaration.result, line.output, terminal);
  if (!out.flush()) throw UsageError("the result cannot be written");
  if (line.repeat > 1) {
    const auto whole = [](double nanoseconds) { return static_cast<std::int64_t>(std::llround(nanoseconds)); };
    err << timing.count() << " calls, " << whole(timing.mean()) << " ns each \u00B1 " << whole(timing.deviation())
        << " (" << whole(timing.least()) << " to " << whole(timing.most()) << "), the host's work included\n";
  }
  return report(err, outcome);
}

int explainCall(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err, bool watched) {
  standin::Session session(pluginOf(line),
                           {.version = line.hostVersion, .without = line.without, .loadsInPlace = true});
  const standin::Method& method = find(session, line);
  const auto arguments = readArguments(method, line, in, err, watched);
  const standin::Outcome outcome = [&] {
    const Progress progress(err, "calling " + method.declaration.name, watched);
    return session.call(method, arguments);
  }();
  explain(out, method, arguments, outcome, line.asJson);
  if (!out.flush()) throw UsageError("the explanation cannot be written");
  return report(err, outcome);
}

int dispatch(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err, bool terminal,
             bool watched) {
  switch (line.command) {
    case CommandLine::Command::kCall:
      return call(line, in, out, err, terminal, watched);
    case CommandLine::Command::kExplain:
      return explainCall(line, in, out, err, watched);
    case CommandLine::Command::kHelp:
      showReference(out, line.method, line.asJson, terminal && wantsColour());
      return kDone;
    case CommandLine::Command::kTour:
      return tour({"--plugin", pluginOf(line).string()}, out, err);
    default:
      break;
  }
  const standin::Session session(pluginOf(line), {.logs = false, .loadsInPlace = true});
  if (list(out, session, line.pattern, line.asJson)) return kDone;
  throw UsageError("no method matches: " + line.pattern, "stringhost list shows all");
}

}  // namespace

int run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
        bool terminal, bool watched, int* wrongArgument) {
  try {
    const CommandLine line = parseCommandLine(arguments);
    if (line.reply) {
      out << *line.reply;
      return kDone;
    }
    return dispatch(line, in, out, err, terminal, watched);
  } catch (const UsageError& error) {
    if (wrongArgument != nullptr) *wrongArgument = error.argument();
    err << "stringhost: " << error.what() << '\n';
    if (!error.hint().empty()) err << error.hint() << '\n';
  } catch (const std::bad_alloc&) {
    err << "stringhost: not enough memory\n";
  } catch (const std::length_error&) {
    err << "stringhost: not enough memory\n";
  } catch (const std::exception& error) {
    err << "stringhost: " << error.what() << '\n';
  }
  return kUsage;
}

}  // namespace stringhost

#include "stringhost/stringhost.h"

#include <cerrno>
#include <cstddef>
#include <new>
#include <ostream>
#include <stdexcept>
#include <system_error>

#include "standin/session.h"
#include "stringhost/call_command.h"
#include "stringhost/command_line.h"
#include "stringhost/list.h"
#include "stringhost/nearest.h"
#include "stringhost/plugin_file.h"
#include "stringhost/printable.h"
#include "stringhost/reference_command.h"
#include "stringhost/tour.h"
#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

int showList(const CommandLine& line, std::ostream& out) {
  const standin::Session session(pluginFile(line), {.logs = false, .loadsInPlace = true});
  if (!list(out, session, line.pattern, line.asJson)) {
    const std::string hint = hintFor(line.pattern, namesOf(session));
    throw UsageError("no method matches: " + line.pattern, hint.empty() ? "stringhost list shows all" : hint);
  }
  return kDone;
}

int dispatch(const CommandLine& line, const Streams& streams) {
  switch (line.command) {
    case CommandLine::Command::kCall:
      return call(line, streams);
    case CommandLine::Command::kExplain:
      return explainCall(line, streams);
    case CommandLine::Command::kHelp:
      showReference(streams.out, line.method, line.asJson, streams.terminal);
      return kDone;
    case CommandLine::Command::kTour:
      return tour({"--plugin", pluginFile(line).string()}, streams.out, streams.err);
    default:
      return showList(line, streams.out);
  }
}

/// The line without the middle of a long argument it quotes, in UTF-8.
std::string shortened(const std::string& line) {
  constexpr std::size_t kMost = 300;
  constexpr std::size_t kEnd = 100;
  if (line.size() <= kMost) return line;
  const auto isInside = [&](std::size_t at) { return (static_cast<unsigned char>(line[at]) & 0xC0) == 0x80; };
  std::size_t first = kMost - kEnd;
  std::size_t last = line.size() - kEnd;
  while (first > 0 && isInside(first)) --first;
  while (last < line.size() && isInside(last)) ++last;
  return line.substr(0, first) + "\u2026" + line.substr(last);
}

void complain(std::ostream& err, const std::string& line) { err << "stringhost: " << visible(shortened(line)) << '\n'; }

/// What was printed may have found no room, or still be on its way. The reason is the last one the system gave.
void finish(std::ostream& out) {
  if (out.flush()) return;
  throw UsageError("the output cannot be written" +
                   (errno != 0 ? ": " + std::generic_category().message(errno) : std::string()));
}

}  // namespace

int run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
        bool terminal, bool watched, int* wrongArgument) {
  errno = 0;
  try {
    const CommandLine line = parseCommandLine(arguments);
    int status = kDone;
    if (line.reply) {
      out << *line.reply;
    } else {
      status = dispatch(line, {in, out, err, terminal, watched && !isDumbTerminal()});
    }
    finish(out);
    return status;
  } catch (const UsageError& error) {
    if (wrongArgument != nullptr) *wrongArgument = error.argument();
    complain(err, error.what());
    if (!error.hint().empty()) err << visible(error.hint()) << '\n';
  } catch (const std::bad_alloc&) {
    err << "stringhost: not enough memory\n";
  } catch (const std::length_error&) {
    err << "stringhost: not enough memory\n";
  } catch (const std::exception& error) {
    complain(err, error.what());
  }
  return kUsage;
}

}  // namespace stringhost

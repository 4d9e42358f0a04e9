/// What a command line asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/encodings.h"
#include "stringhost/output.h"

namespace stringhost {

struct CommandLine {
  enum class Command { kNone, kList, kCall, kExplain, kHelp, kTour };

  Command command = Command::kNone;
  std::optional<std::string> reply;   ///< what --help or --version answer; nothing else is to be done then
  std::optional<std::string> plugin;  ///< none: the one built beside this program

  bool asJson = false;

  std::string pattern;  ///< of list

  std::string method;  ///< of call, explain and help; empty: all of the reference
  std::vector<std::string> arguments;
  double hostVersion = 0;
  TextEncoding encoding = kEncodingUTF8;
  std::vector<std::string> without;
  Form output = Form::kText;
  std::optional<int> repeat;  ///< how often; none: once, and not timed
};

/// Throws `UsageError`.
[[nodiscard]] CommandLine parseCommandLine(const std::vector<std::string>& arguments);

}  // namespace stringhost

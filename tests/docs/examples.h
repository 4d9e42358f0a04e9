/// Examples in the documentation: command lines with what they print, run and compared.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/docs/fenced_blocks.h"

namespace docs {

/// What came of a page's examples.
struct Replay {
  int examples = 0;
  std::vector<std::string> failures;  ///< "page:line: what was expected and what came"
};

/// Runs the "console" blocks of a page. A line "$ stringhost …", quoted as for a shell, is followed by what it prints
/// on a terminal; after that come the lines of standard error and, for a status other than 0, "[status 2]".
/// @param name    of the page, for the failures
/// @param plugin  the file of the plugin to run them with
[[nodiscard]] Replay replayExamples(const std::string& name, const Page& page, const std::string& plugin);

}  // namespace docs

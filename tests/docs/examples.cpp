#include "tests/docs/examples.h"

#include <sstream>

#include "stringhost/shell_words.h"
#include "stringhost/stringhost.h"

namespace docs {
namespace {

constexpr std::string_view kPrompt = "$ ";
constexpr std::string_view kProgram = "stringhost";

/// All that a command line prints, or why it cannot be run.
std::string printed(std::string_view command, const std::string& plugin) {
  auto words = stringhost::shellWords(command);
  if (!words) return "a quotation is not closed\n";
  if (words->empty() || words->front() != kProgram) return "not a command line of stringhost\n";
  words->erase(words->begin());
  words->insert(words->begin(), {"--plugin", plugin});
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  const int status = stringhost::run(*words, in, out, err, true);
  std::string all = out.str() + err.str();
  if (status != 0) all += "[status " + std::to_string(status) + "]\n";
  return all;
}

}  // namespace

Replay replayExamples(const std::string& name, const Page& page, const std::string& plugin) {
  Replay replay;
  for (const FencedBlock& block : page.blocks) {
    if (block.kind != "console") continue;
    for (std::size_t at = 0; at < block.lines.size();) {
      const Line& command = block.lines[at++];
      const std::string place = name + ":" + std::to_string(command.number) + ": ";
      if (!command.text.starts_with(kPrompt)) {
        replay.failures.push_back(place + "output without a command");
        continue;
      }
      std::string expected;
      while (at < block.lines.size() && !block.lines[at].text.starts_with(kPrompt)) {
        expected += block.lines[at++].text + "\n";
      }
      ++replay.examples;
      const std::string got = printed(command.text.substr(kPrompt.size()), plugin);
      if (got != expected) replay.failures.push_back(place + "expected\n" + expected + "but got\n" + got);
    }
  }
  return replay;
}

}  // namespace docs

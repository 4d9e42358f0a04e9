/// The completions of the shells know every command and option that the help names.
#include <doctest/doctest.h>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "stringhost/stringhost.h"

namespace stringhost {
namespace {

std::string helpOf(const std::vector<std::string>& words) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  REQUIRE(run(words, in, out, err, false) == kDone);
  return out.str();
}

/// What the first group of a pattern matches, line by line.
std::set<std::string> found(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::set<std::string> words;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
    words.insert((*match)[1]);
  }
  return words;
}

TEST_CASE("every command and option is completed, and no other") {
  const std::string help = helpOf({"--help"});
  const std::set<std::string> commands = found(help.substr(help.find("Subcommands:")), "\n  ([a-z]+) ");
  CHECK(commands.size() >= 5);
  std::set<std::string> options = found(help, "--([a-z-]+)");
  for (const std::string& command : commands)
    options.merge(found(helpOf({command, "--help"}), "\n  (?:-h,)?--([a-z-]+)"));
  CHECK(options.size() >= 9);
  for (const std::string name : {"stringhost.bash", "_stringhost", "stringhost.fish"}) {
    CAPTURE(name);
    std::ifstream file(COMPLETIONS_FOLDER + name, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (const std::string& command : commands) {
      CAPTURE(command);
      CHECK(std::regex_search(text, std::regex("\\b" + command + "\\b")));
    }
    const bool isFish = text.find("complete -c") != std::string::npos;
    const auto known = found(text, isFish ? "complete [^\n]* -l ([a-z-]+)" : "[ '*)]--([a-z][a-z-]*)");
    CHECK(known == options);
  }
}

}  // namespace
}  // namespace stringhost

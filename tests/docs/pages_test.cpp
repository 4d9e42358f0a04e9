/// The documentation itself: its examples do what it says, and it describes every method.
#include <algorithm>
#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "standin/session.h"
#include "tests/docs/coverage.h"
#include "tests/docs/examples.h"
#include "tests/docs/uniformity.h"

namespace docs {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = SOURCE_FOLDER;

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The pages below a folder, by their path from the root of the sources.
std::map<std::string, Page> pagesBelow(const char* folder) {
  std::map<std::string, Page> pages;
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
    if (entry.path().extension() != ".md") continue;
    pages[entry.path().lexically_relative(kRoot).generic_string()] = readPage(contentsOf(entry.path()));
  }
  return pages;
}

TEST_CASE("every example prints what its page says") {
  // Where a reader of the examples would run them.
  fs::current_path(kRoot);
  int examples = 0;
  auto pages = pagesBelow("docs");
  pages["README.md"] = readPage(contentsOf(kRoot / "README.md"));
  for (const auto& [name, page] : pages) {
    const Replay replay = replayExamples(name, page, STRING_PLUGIN_FILE);
    examples += replay.examples;
    for (const std::string& failure : replay.failures) FAIL_CHECK(failure);
  }
  CHECK(examples > 0);
}

TEST_CASE("every method is documented, and nothing else") {
  std::vector<std::string> registered;
  const standin::Session session;
  for (const standin::Method& method : session.methods()) registered.emplace_back(method.entry.declaration);
  for (const std::string& difference : differences(pagesBelow("docs/methods"), registered)) FAIL_CHECK(difference);
}

TEST_CASE("every entry has the same parts") {
  for (const std::string& missing : missingParts(pagesBelow("docs/methods"))) FAIL_CHECK(missing);
}

TEST_CASE("an entry without one of its parts is told what it lacks") {
  constexpr struct {
    const char* part;
    const char* other;
    const char* lack;
  } kCases[] = {
      {"- **Limits:** ", "- ", "in its place: - **Limits:** "},
      {"**Python:** ", "**Perl:** ", "in its place: **Python:** "},
      {"| `0` |", "| `9` |", "a row with its default: options"},
      {"| `s` |", "| `t` |", "a row with its default: s"},
      {"Beyond ASCII", "In ASCII", "an example beyond ASCII"},
      {"```php", "```sh", "an example of php"},
      {"(s as string", "(s", "a declaration that can be read"},
  };
  for (const auto& c : kCases) {
    CAPTURE(c.lack);
    std::string page = contentsOf(kRoot / "docs" / "methods" / "markup.md");
    page.replace(page.find(c.part), std::string(c.part).size(), c.other);
    CHECK(missingParts({{"markup.md", readPage(page)}}) ==
          std::vector{std::string("EncodingToHTMLZQV lacks ") + c.lack});
  }
}

TEST_CASE("the index links every method and says what it does") {
  const auto pages = pagesBelow("docs/methods");
  const std::string index = contentsOf(kRoot / "docs" / "methods" / "README.md");
  const standin::Session session;
  for (const standin::Method& method : session.methods()) {
    const std::string& name = method.declaration.name;
    std::string anchor = name;
    for (char& c : anchor) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    INFO("method: " << name);
    CHECK(index.find("[" + name + "](") != std::string::npos);
    CHECK(index.find(".md#" + anchor + ")") != std::string::npos);
    CHECK(std::any_of(pages.begin(), pages.end(), [&](const auto& page) {
      const std::string summary = summaryOf(page.second, name);
      return !summary.empty() && index.find(" | " + summary + " |") != std::string::npos;
    }));
  }
}

}  // namespace
}  // namespace docs

/// The checks of the documentation, checked: they pass what is right and name the place of what isn't.
#include <doctest/doctest.h>

#include "tests/docs/coverage.h"
#include "tests/docs/examples.h"

namespace docs {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kPage = R"(# Encodings
## NativeStringZQV
```xojo
NativeStringZQV(s as string) as string
```
)";

TEST_CASE("examples that don't are reported with their place") {
  constexpr struct {
    const char* block;
    const char* failure;
  } kCases[] = {
      {"$ stringhost call NativeStringZQV x\ny\n", "a.md:3: expected\ny\nbut got\nx\n"},
      {"x\n", "a.md:3: output without a command"},
      {"$ ls\n", "a.md:3: expected\nbut got\nnot a command line of stringhost\n"},
      {"$ stringhost 'x\n", "a.md:3: expected\nbut got\na quotation is not closed\n"},
  };
  for (const auto& c : kCases) {
    const Page page = readPage("\n```console\n" + std::string(c.block) + "```\n");
    CHECK(replayExamples("a.md", page, STRING_PLUGIN_FILE).failures == Lines{c.failure});
  }
}

TEST_CASE("the reference and the registered methods are held against each other") {
  const std::string native = "NativeStringZQV(s as string) as string";
  const auto compared = [](const char* page, const Lines& registered) {
    return differences({{"a.md", readPage(page)}}, registered);
  };
  CHECK(compared(kPage, {native}) == Lines{});
  CHECK(compared(kPage, {native, "F() as string"}) == Lines{"not documented: F() as string"});
  CHECK(compared(kPage, {}) == Lines{"a.md:4: not registered: " + native});
  CHECK(compared("## F\n", {}) == Lines{"a.md:1: F has no declaration"});
  CHECK(compared("## F\n```xojo\nG() as string\n```\n", {"G() as string"}) ==
        Lines{"a.md:3: declared below another heading: G() as string"});
  CHECK(compared("## F\n```xojo\nF() as string\nF() as string\n```\n", {"F() as string"}) ==
        Lines{"a.md:4: documented twice: F() as string"});
}

}  // namespace
}  // namespace docs

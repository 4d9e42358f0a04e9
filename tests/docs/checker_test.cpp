/// The checks of the documentation, checked: they pass what is right and name the place of what isn't.
#include <doctest/doctest.h>

#include "tests/docs/coverage.h"
#include "tests/docs/examples.h"
#include "tests/docs/uniformity.h"

namespace docs {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kPage = R"(# Encodings
## NativeStringZQV
```xojo
NativeStringZQV(s as string) as string
```
Text.
```console
$ stringhost call NativeStringZQV 'two words'
two words
$ stringhost call NativeStringZQV ''
$ stringhost call NativeStringZQV
stringhost: NativeStringZQV takes 1 argument, not 0
stringhost help NativeStringZQV says which
[status 2]
```
)";

TEST_CASE("examples that print what the page says pass") {
  const Replay replay = replayExamples("a.md", readPage(kPage), STRING_PLUGIN_FILE);
  CHECK(replay.examples == 3);
  CHECK(replay.failures == Lines{});
}

TEST_CASE("examples that don't are reported with their place") {
  const auto failure = [](const std::string& block) {
    const Replay replay = replayExamples("a.md", readPage("\n```console\n" + block + "```\n"), STRING_PLUGIN_FILE);
    REQUIRE(replay.failures.size() == 1);
    return replay.failures[0];
  };
  CHECK(failure("$ stringhost call NativeStringZQV x\ny\n") == "a.md:3: expected\ny\nbut got\nx\n");
  CHECK(failure("$ stringhost call NativeStringZQV x\n") == "a.md:3: expected\nbut got\nx\n");
  CHECK(failure("x\n") == "a.md:3: output without a command");
  CHECK(failure("$ ls\n") == "a.md:3: expected\nbut got\nnot a command line of stringhost\n");
  CHECK(failure("$ stringhost 'x\n") == "a.md:3: expected\nbut got\na quotation is not closed\n");
}

TEST_CASE("blocks of another kind are not run") {
  CHECK(replayExamples("a.md", readPage("```sh\n$ ls\n```\n"), STRING_PLUGIN_FILE).examples == 0);
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

constexpr const char* kEntry = R"(## Pad
```xojo
Pad(s as string, width as integer = 8) as string
```
Fills up.

| Parameter | Default | Meaning |
|---|---|---|
| `s` | | the text |
| `width` | `8` | of the result |
### Facts
- **Reads:** text.
- **Gives:** UTF-8.
- **Empty input:** blanks.
- **Malformed input:** none.
- **Failures:** none.
- **Limits:** none.
- **Cost:** little.
### Examples
```console
$ stringhost call Pad x
$ stringhost call Pad é
```
Beyond ASCII and
Odd input:
```console
$ stringhost call Pad x -1
```
### Other languages
**PHP:** pads.
```php
echo str_pad("x", 8);
```
**Python:** pads.
```python
print("x".ljust(8))
```
**JavaScript:** no near function.
)";

TEST_CASE("an entry with all its parts passes, and one without is told what it lacks") {
  const auto lackingIn = [](const std::string& page) { return missingParts({{"a.md", readPage(page)}}); };
  CHECK(lackingIn(kEntry) == Lines{});
  CHECK(summaryOf(readPage(kEntry), "Pad") == "Fills up.");
  constexpr struct {
    const char* part;
    const char* other;
    const char* lack;
  } kLacks[] = {
      {"- **Limits:** none.\n", "", "in its place: - **Limits:** "},
      {"**Python:** pads", "**Perl:** pads", "in its place: **Python:** "},
      {"### Facts\n- **Reads:** text.", "- **Reads:** text.\n### Facts", "in its place: - **Reads:** "},
      {"| `8` |", "| `9` |", "a row with its default: width"},
      {"| `s` | |", "| `s` | `0` |", "a row with its default: s"},
      {"| `s` |", "| `t` |", "a row with its default: s"},
      {"Pad x -1", "Pod x -1", "three examples"},
      {"Beyond ASCII", "In ASCII", "an example beyond ASCII"},
      {"Pad é", "Pad e", "an example beyond ASCII"},
      {"```php", "```sh", "an example of php"},
      {"no near function", "something", "an example of js"},
      {"Pad(s as string", "Pad(s", "a declaration that can be read"},
  };
  for (const auto& each : kLacks) {
    CAPTURE(each.lack);
    std::string page = kEntry;
    page.replace(page.find(each.part), std::string(each.part).size(), each.other);
    CHECK(lackingIn(page) == Lines{std::string("Pad lacks ") + each.lack});
  }
}

}  // namespace
}  // namespace docs

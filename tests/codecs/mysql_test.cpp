/// MySQL unescaping.
#include "codecs/mysql.h"

#include <doctest/doctest.h>

#include "tests/codecs/shortening.h"
#include "tests/reference/mysql.h"
#include "tests/support/forms.h"
#include "tests/support/random_bytes.h"

using namespace std::string_view_literals;

namespace {

struct Case {
  const char* name;
  std::string_view text;
  std::string_view bytes;
};

constexpr Case kCases[] = {
    {"nothing", "", ""},
    {"a quote", R"(It\'s)", "It's"},
    {"a backslash", R"(a\\b)", R"(a\b)"},
    {"every letter and digit", R"(\0\b\n\r\t\Z)", "\0\b\n\r\t\x1A"sv},
    {"every mark", R"(\'\"\\\%\_)", R"('"\%_)"},
    {"the other case is no escape", R"(\N\R\T\B\z\O)", R"(\N\R\T\B\z\O)"},
    {"an unknown pair stays", R"(\q 50\%)", R"(\q 50%)"},
    {"the byte of an unknown pair begins none", R"(\x\n)", "\\x\n"},
    {"pairs go from left to right", R"(\\n\\\n)", "\\n\\\n"},
    {"a pair with a high byte stays", "\\\x80\\\xFF", "\\\x80\\\xFF"},
    {"a backslash at the end", R"(ab\)", R"(ab\)"},
    {"only a backslash", R"(\)", R"(\)"},
};

void agreesWithTwin(ShorteningKernel kernel) {
  RandomBytes random(1995);
  constexpr std::string_view kAlphabets[] = {R"(some text with few escapes: \n)", R"(\)", R"(\n)", R"(\\\0'"bnrtZ%_xN)",
                                             "no escapes"};
  for (std::size_t length = 0; length <= 200; ++length) {
    CAPTURE(length);
    for (const std::string_view alphabet : kAlphabets) {
      const std::string text = random.of(alphabet, length);
      const std::string expected = reference::mysqlDecoded(text);
      CHECK(shortened(kernel, text, random.below(1024)) == expected);
      CHECK(shortened(kernel, text, random.below(1024), 64) == expected);
    }
  }
}

}  // namespace

TEST_CASE("mysql: examples") {
  for (const Case& c : kCases) {
    CAPTURE(c.name);
    CHECK(shortened(mysql::decode, c.text) == c.bytes);
    CHECK(reference::mysqlDecoded(c.text) == c.bytes);
  }
}

TEST_CASE("mysql: every pair, alone and across the end of a vector") {
  for (int second = 0; second < 256; ++second) {
    CAPTURE(second);
    const std::string pair{'\\', static_cast<char>(second)};
    for (const std::size_t before : {0U, 30U, 31U, 32U}) {
      const std::string text = std::string(before, '.') + pair + "n.";
      CHECK(shortened(mysql::decode, text) == reference::mysqlDecoded(text));
    }
  }
}

TEST_CASE("mysql: every form agrees with the naive twin") { IN_EVERY_FORM(mysql, agreesWithTwin(form::decode)); }

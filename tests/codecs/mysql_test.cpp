/// MySQL unescaping.
#include "codecs/mysql.h"

#include "tests/reference/mysql.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

constexpr Example kExamples[] = {
    {"every letter and digit", R"(\0\b\n\r\t\Z)", "\0\b\n\r\t\x1A"sv},
    {"every mark", R"(\'\"\\\%\_)", R"('"\%_)"},
    {"the other case is no escape", R"(\N\R\T\B\z\O)", R"(\N\R\T\B\z\O)"},
    {"an unknown pair stays", R"(\q 50\%)", R"(\q 50%)"},
    {"the byte of an unknown pair begins none", R"(\x\n)", "\\x\n"},
    {"pairs go from left to right", R"(\\n\\\n)", "\\n\\\n"},
    {"a pair with a high byte stays", "\\\x80\\\xFF", "\\\x80\\\xFF"},
    {"a backslash at the end", R"(ab\)", R"(ab\)"},
};

std::string decoded(std::string_view text) { return shortened(mysql::decode, text); }

}  // namespace

TEST_CASE("mysql: examples") { checkExamples(kExamples, decoded, reference::mysqlDecoded); }

TEST_CASE("mysql: every pair, alone and across the end of a vector") {
  for (int second = 0; second < 256; ++second) {
    CAPTURE(second);
    const std::string pair{'\\', static_cast<char>(second)};
    for (const std::size_t before : {0U, 30U, 31U, 32U}) {
      const std::string text = std::string(before, '.') + pair + "n.";
      CHECK(decoded(text) == reference::mysqlDecoded(text));
    }
  }
}

TEST_CASE("mysql: every form agrees with the naive twin, with room behind the output and without") {
  for (const std::size_t room : {0U, 64U}) {
    IN_EVERY_FORM(mysql, checkAgainstTwin(
                             {R"(some text with few escapes: \n)", R"(\)", R"(\n)", R"(\\\0'"bnrtZ%_xN)", "no escapes"},
                             [room](std::string_view text, std::size_t offset) {
                               return shortened(form::decode, text, offset, room);
                             },
                             reference::mysqlDecoded));
  }
}

/// The rewriting of booleans in SQL.
#include "analysis/sql_booleans.h"

#include "tests/reference/sql_booleans.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

constexpr std::uint32_t kSeed = 0x5351'4C21;

enum class Way { kPlain, kWide, kChosen };

std::string replaced(std::string_view sql, Way way = Way::kChosen) {
  const auto rewrite = [way](ByteView in, ByteSpan out) {
    if (way == Way::kChosen) return sql_booleans::replace(in, out);
    sql_booleans::Progress progress;
    if (way == Way::kWide) IN_WIDE_FORM(sql_booleans, form::rewrite(in, out, progress));
    sql_booleans::scalar::rewrite(in, out, progress);
    return progress.written;
  };
  return written(rewrite, sql, sql.size(), sql.size() % 997);
}

constexpr Example kExamples[] = {
    {"a whole statement", "UPDATE t SET a = TRUE, b = false WHERE d = True;", "UPDATE t SET a = 1, b = 0 WHERE d = 1;"},
    {"a word alone", "false", "0"},
    {"strings and names", "s = 'true' AND n = \"false\"", "s = 'true' AND n = \"false\""},
    {"a doubled quote", "'it''s true' true", "'it''s true' 1"},
    {"a quote in the other kind of quotes", "\"it's\" true '\"' false", "\"it's\" 1 '\"' 0"},
    {"an open quote", "true 'false \" true", "1 'false \" true"},
    {"right after a quote", "'a'true \"b\"false", "'a'true \"b\"false"},
    {"a backslash", R"('a\' true)", R"('a\' 1)"},
    {"word bytes around", "x=true truely istrue -true true. tru fals", "x=true truely istrue -true true. tru fals"},
    {"case", "TrUe fAlSe", "1 0"},
    {"delimiters of all kinds", "\ttrue\0false;étrue\x80"sv, "\t1\0000;é1\x80"sv},
    {"the delete character is none", "true\x7F \x7Ftrue", "true\x7F \x7Ftrue"},
    {"characters that differ from letters in one bit", "TRU\x05 \x54RUE D\x52UE", "TRU\x05 1 D\x52UE"},
};

TEST_CASE("SQL booleans: examples") {
  checkExamples(
      kExamples, [](std::string_view sql) { return replaced(sql); }, reference::booleansReplaced);
}

TEST_CASE("SQL booleans: all forms agree with the reference on random statements") {
  constexpr std::string_view kPieces[] = {"true", "FALSE", "True", "falsE", "tru",  "fal",   "\"",   "'",     "''",
                                          " ",    "\n",    " ",    "(",     ")",    ",",     ";",    "=",     "x",
                                          "\x80", "\0"sv,  "t",    "f",     "true", "false", "word", " AND ", "  "};
  RandomBytes random(kSeed);
  for (int i = 0; i < 4000; ++i) {
    const std::size_t pieces = random.below(i % 4 == 0 ? 100 : 25);
    const std::size_t choices = i % 3 == 0 ? std::size(kPieces) : 6;
    std::string sql;
    for (std::size_t k = 0; k < pieces; ++k) {
      sql += kPieces[(random.below(choices) * (1 + random.below(4))) % std::size(kPieces)];
      if (i % 2 == 0) sql += ' ';
    }
    CAPTURE(sql);
    const std::string expected = reference::booleansReplaced(sql);
    for (const Way way : {Way::kPlain, Way::kWide, Way::kChosen}) CHECK((replaced(sql, way) == expected));
  }
}

TEST_CASE("SQL booleans: a word at every place of a long statement") {
  for (std::size_t place = 0; place <= 200; ++place) {
    for (const std::size_t after : {std::size_t{0}, std::size_t{31}, std::size_t{32}, 200 - place}) {
      CAPTURE(place);
      CAPTURE(after);
      const std::string before(place, ' ');
      const std::string rest(after, ' ');
      CHECK((replaced(before + "TRUE" + rest) == before + "1" + rest));
      CHECK((replaced(before + "FALSE" + rest) == before + "0" + rest));
      const std::string quoted = before.substr(place / 2) + "'" + before + "FALSE" + rest;
      CHECK((replaced(quoted) == quoted));
    }
  }
}

}  // namespace

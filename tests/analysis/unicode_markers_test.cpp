/// Byte-order marks.
#include "analysis/unicode_markers.h"

#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

struct Case {
  std::string_view bytes;
  int kind;
};

constexpr Case kDetected[] = {
    {"", 0},
    {"\xFF", 0},
    {"\xFF\xFE", 4},
    {"\xFF\xFE\0"sv, 4},
    {"\xFF\xFE\0\0"sv, 7},
    {"\xFE\xFF\0\x41"sv, 3},
    {"\0\0\xFE\xFF"sv, 6},
    {"\0\xFE\xFF"sv, 0},
    {"\xEF\xBB", 0},
    {"\xEF\xBB\xBF and more", 1},
    {" \xEF\xBB\xBF", 0},
};

TEST_CASE("byte-order marks: detection looks at the first bytes only") {
  for (const Case& c : kDetected) {
    CAPTURE(c.kind);
    const PlacedBytes bytes(c.bytes, 1);
    CHECK(unicode_markers::detect(bytes.span()) == c.kind);
  }
}

TEST_CASE("byte-order marks: those of each kind") {
  const std::string_view marks[] = {"",         "\xEF\xBB\xBF",   "\xFF\xFE",       "\xFE\xFF",
                                    "\xFF\xFE", "\xFF\xFE\0\0"sv, "\0\0\xFE\xFF"sv, "\xFF\xFE\0\0"sv};
  for (int kind = -2; kind <= 9; ++kind) {
    CAPTURE(kind);
    const ByteView mark = unicode_markers::mark(kind);
    const bool known = kind >= 1 && kind <= 7;
    CHECK(std::string(mark.begin(), mark.end()) == (known ? marks[kind] : ""));
    if (!known) continue;
    CHECK(unicode_markers::detect(mark) == (kind == 2 || kind == 5 ? kind + 2 : kind));
    CHECK(reinterpret_cast<std::uintptr_t>(mark.data()) % 4 == 0);
  }
}

}  // namespace

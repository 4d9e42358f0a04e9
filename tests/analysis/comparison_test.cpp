/// Order of byte strings.
#include "analysis/comparison.h"

#include "tests/reference/comparison.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

constexpr std::uint32_t kSeed = 0x434D'5021;

int compared(std::string_view a, std::string_view b) {
  const PlacedBytes first(a, a.size() % 32);
  const PlacedBytes second(b, b.size() % 32);
  return comparison::compareZeroExtended(first.span(), second.span());
}

struct Case {
  const char* name;
  std::string_view a;
  std::string_view b;
  int order;
};

constexpr Case kCases[] = {
    {"nothing and zero bytes", "", "\0\0"sv, 0},
    {"the first difference decides", "abca", "abdA", -1},
    {"bytes, not the alphabet", "B", "a", -1},
    {"bytes are unsigned", "\x80", "\x7F", 1},
    {"trailing zero bytes don't count", "abc", "abc\0"sv, 0},
    {"but what comes behind them does", "abc", "abc\0\1"sv, -1},
};

TEST_CASE("comparison: examples, both ways round") {
  for (const Case& c : kCases) {
    CAPTURE(c.name);
    CHECK(compared(c.a, c.b) == c.order);
    CHECK(compared(c.b, c.a) == -c.order);
  }
}

TEST_CASE("comparison: one difference anywhere, at all lengths") {
  RandomBytes random(kSeed);
  for (std::size_t length = 1; length <= 200; ++length) {
    const std::string a = random(length);
    std::string b = a;
    b[random.below(length)] = static_cast<char>(random.below(256));
    const std::string continued = a + std::string(random.below(70), '\0') + random.of("\0\0\1"sv, random.below(3));
    CAPTURE(length);
    CHECK(compared(a, b) == reference::compared(a, b));
    CHECK(compared(a, continued) == reference::compared(a, continued));
    CHECK(compared(continued, b) == reference::compared(continued, b));
  }
}

}  // namespace

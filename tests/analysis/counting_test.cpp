/// Counting occurrences.
#include "analysis/counting.h"

#include "analysis/counting_two_way.h"
#include "tests/reference/counting.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

constexpr std::uint32_t kSeed = 0x434F'554E;

using Kernel = std::int64_t (*)(ByteView, ByteView) noexcept;

/// Every way there is to count a pattern that isn't empty, the chosen one first.
std::vector<Kernel> kernelsFor(std::string_view pattern) {
  std::vector<Kernel> kernels{counting::count};
  IN_EVERY_FORM(counting, kernels.push_back(form::count));
  if (pattern.size() > 1) kernels.push_back(counting::countTwoWay);
  return kernels;
}

void checkCount(std::string_view text, std::string_view pattern) {
  const PlacedBytes in(text, text.size() % 32);
  const PlacedBytes find(pattern, 0);
  const std::int64_t expected = reference::count(text, pattern);
  CAPTURE(text.substr(0, 300));
  CAPTURE(pattern.substr(0, 300));
  for (const Kernel kernel : kernelsFor(pattern)) CHECK(kernel(in.span(), find.span()) == expected);
}

struct Case {
  const char* name;
  std::string_view text;
  std::string_view pattern;
  std::int64_t count;
};

constexpr Case kCases[] = {
    {"no overlap", "aaaa", "aa", 2},
    {"longer than the text", "ab", "abc", 0},
    {"the leftmost first", "banana", "ana", 1},
    {"the text itself", "banana", "banana", 1},
    {"zero bytes", "a\0\0b\0"sv, "\0"sv, 3},
    {"in no text", "", "a", 0},
};

TEST_CASE("counting: examples") {
  CHECK(counting::count({}, {}) == 0);
  for (const Case& c : kCases) {
    CAPTURE(c.name);
    REQUIRE(reference::count(c.text, c.pattern) == c.count);
    checkCount(c.text, c.pattern);
  }
}

TEST_CASE("counting: bytes and pairs in short texts, and in more than the bytes of a vector can count") {
  RandomBytes random(kSeed);
  for (std::size_t length = 0; length <= 300; ++length) checkCount(random.of("aab\xFF", length), "a");
  for (std::size_t length = 4000; length < 4200; ++length) checkCount(random.of("aab", length), "ab");
  checkCount(std::string(100'000, 'a'), "a");
  std::string pairs;
  while (pairs.size() < 20'000) pairs += "ab";
  checkCount(pairs, "ab");
}

TEST_CASE("counting: patterns of all kinds in texts of few letters") {
  RandomBytes random(kSeed);
  constexpr std::string_view kAlphabets[] = {"a", "ab", "aaab", "abc", "e \xC3"};
  for (std::size_t round = 0; round < 12'000; ++round) {
    const std::string_view alphabet = kAlphabets[round % std::size(kAlphabets)];
    std::string text = random.of(alphabet, random.below(300));
    std::string pattern = random.of(alphabet, 1 + random.below(round % 3 == 0 ? 40 : 6));
    if (round % 4 == 0 && text.size() > pattern.size()) {
      pattern = text.substr(random.below(text.size() - pattern.size()), pattern.size());
    }
    if (round % 7 == 0) {  // periods, broken at times
      const std::size_t period = 1 + random.below(4);
      for (std::size_t i = period; i < text.size(); ++i) {
        if (random.below(40) != 0) text[i] = text[i - period];
      }
      for (std::size_t i = period; i < pattern.size(); ++i) pattern[i] = pattern[i - period];
    }
    checkCount(text, pattern);
  }
}

TEST_CASE("counting: a rare word at every place") {
  for (std::size_t place = 0; place < 700; ++place) {
    std::string text(700 + 3 * (place % 5), 'e');
    text.replace(place, 3, "ezq");
    checkCount(text, "ezq");
    checkCount(text, "zq");
    checkCount(text, std::string(20, 'e') + "z");
    checkCount(text + text, "qe");
  }
}

TEST_CASE("counting: texts on which filters fail") {
  const std::string a(4000, 'a');
  const auto brokenBy = [](std::string text, char byte, std::size_t distance) {
    for (std::size_t i = distance; i < text.size(); i += distance + 1) text[i] = byte;
    return text;
  };
  const std::string broken = brokenBy(a, 'b', 50);
  for (const std::size_t at : {std::size_t{0}, std::size_t{7}, std::size_t{1000}, std::size_t{1999}}) {
    std::string half(2000, 'a');
    half[at] = 'b';
    checkCount(a, half);
    checkCount(broken, half);
    checkCount(broken + half + half, half);
  }
  checkCount(broken, brokenBy(std::string(75, 'a'), 'b', 37));
  checkCount(broken, brokenBy(std::string(120, 'a'), 'b', 50));
  checkCount(brokenBy(a, 'b', 1), brokenBy(std::string(100, 'a'), 'b', 1) + "aa");
}

}  // namespace

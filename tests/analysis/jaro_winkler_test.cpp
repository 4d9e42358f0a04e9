/// Jaro-Winkler distance.
#include "analysis/jaro_winkler.h"

#include "tests/reference/distances.h"
#include "tests/support/kernels.h"
#include "tests/support/random_texts.h"

namespace {

constexpr std::uint32_t kSeed = 0x4A41'524F;

double distance(std::u32string_view a, std::u32string_view b) {
  const PlacedUtf32 first(a, 0);
  const PlacedUtf32 second(b, 0);
  const auto result = jaro_winkler::distance(first.span(), second.span());
  CHECK(result.shortage == jaro_winkler::Shortage::kNone);
  return result.distance;
}

TEST_CASE("jaro-winkler: examples") {
  CHECK(distance(U"", U"") == 0.0);
  CHECK(distance(U"abc", U"xyz") == 1.0);
  CHECK(distance(U"ab", U"ba") == 1.0);  // no window: only equal positions match
  CHECK(distance(U"MARTHA", U"MARHTA") == doctest::Approx(0.0388888888888889));
  CHECK(distance(U"DIXON", U"DICKSONX") == doctest::Approx(0.1866666666666667));
}

TEST_CASE("jaro-winkler: the boost begins above 0.7") {
  const std::u32string same(28, U'a');
  CHECK(distance(same + std::u32string(23, U'x'), same + std::u32string(23, U'y')) ==
        doctest::Approx(1.0 - (28.0 / 51 + 28.0 / 51 + 1.0) / 3.0));
  // (3/5 + 3/6 + 1) / 3 is a little more than 0.7 in binary.
  CHECK(distance(U"abcxyz", U"abcuv") == doctest::Approx(1.0 - (0.7 + 0.3 * 0.3)));
}

TEST_CASE("jaro-winkler: bit for bit as the definition, on both sides of the size of a word") {
  RandomTexts random(kSeed);
  constexpr std::size_t kLengths[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 20, 63, 64, 65, 127, 128, 129, 300};
  for (const std::size_t n : kLengths) {
    for (const std::size_t m : kLengths) {
      for (const std::u32string_view alphabet : kAlphabets) {
        const std::u32string a = random.of(alphabet, n);
        const std::u32string b = random.of(alphabet, m);
        CAPTURE(n);
        CAPTURE(m);
        CHECK(distance(a, b) == reference::jaroWinkler(a, b));
        const std::u32string c = random.edited(a, alphabet, 1 + n / 8);
        CHECK(distance(a, c) == reference::jaroWinkler(a, c));
        CHECK(distance(c, a) == reference::jaroWinkler(c, a));
      }
    }
  }
}

TEST_CASE("jaro-winkler: thousands of different characters") {
  RandomTexts random(kSeed);
  for (const char32_t last : {U'\u4F00', U'\u9FFF', U'\U0010FFFF', char32_t{0xFFFF'FFFE}}) {
    const std::u32string a = random.between(U'\u4E00', last, 2000);
    std::u32string b = a;
    for (std::size_t i = 0; i + 400 < b.size(); i += 3) std::swap(b[i], b[i + random.below(400)]);
    CHECK(distance(a, b) == reference::jaroWinkler(a, b));
  }
}

}  // namespace

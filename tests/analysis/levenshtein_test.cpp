/// Edit distance.
#include "analysis/levenshtein.h"

#include <vector>

#include "analysis/levenshtein_bands.h"
#include "tests/reference/distances.h"
#include "tests/support/kernels.h"
#include "tests/support/random_texts.h"

namespace {

constexpr std::uint32_t kSeed = 0x4C45'5645;

std::int64_t distance(std::u32string_view a, std::u32string_view b) {
  const PlacedUtf32 first(a, 0);
  const PlacedUtf32 second(b, 0);
  const std::int64_t distance = levenshtein::distance(first.span(), second.span());
  CHECK(levenshtein::scalar::distance(first.span(), second.span()) == distance);
  return distance;
}

double relativeDistance(std::u32string_view a, std::u32string_view b) {
  return levenshtein::relativeDistance(distance(a, b), a, b);
}

TEST_CASE("levenshtein: examples") {
  CHECK(relativeDistance(U"abc", U"abc") == 0.0);
  CHECK(relativeDistance(U"saturday", U"sunday") == 0.5);
  CHECK(relativeDistance(U"ab", U"ba") == 0.5);   // a swap
  CHECK(relativeDistance(U"ca", U"abc") == 1.5);  // what was swapped is not edited again
  CHECK(relativeDistance(U"a", U"bcd") == 3.0);
  CHECK(relativeDistance(U"1234567", U"1234568") == 1.0 / (7.0 / 1.0));  // not the same double as 1.0 / 7.0
  CHECK(distance(U"", U"") == 0);
  CHECK(distance(U"", U"abc") == 3);
}

TEST_CASE("levenshtein: the limit counts a border around the matrix") {
  const std::u32string side(23'169, U'a');
  CHECK(levenshtein::matrixSize(std::u32string_view(side), std::u32string_view(side)) == 2'147'395'600);
  CHECK(levenshtein::matrixSize(Utf32View{}, Utf32View{}) == 4);
}

TEST_CASE("levenshtein: texts that differ much and little, around the sizes of words and bands") {
  RandomTexts random(kSeed);
  constexpr std::size_t kLengths[] = {0, 1, 2, 5, 63, 64, 65, 127, 128, 129, 255, 257, 600};
  for (const std::u32string_view alphabet : kAlphabets) {
    for (const std::size_t n : kLengths) {
      const std::u32string a = random.of(alphabet, n);
      CAPTURE(n);
      for (const std::size_t m : kLengths) {
        const std::u32string b = random.of(alphabet, m);
        CAPTURE(m);
        CHECK(distance(a, b) == reference::levenshtein(a, b));
      }
      const std::u32string c = random.edited(a, alphabet, 1 + n / 10);
      const std::int64_t expected = reference::levenshtein(a, c);
      CHECK(distance(a, c) == expected);
      CHECK(distance(c, a) == expected);
      CHECK(distance(U"xyz" + a + U"\U0001F600y", U"xyz" + c + U"\U0001F600y") == expected);
    }
  }
}

/// The distance by one form of the bands; symbols stand for themselves.
std::int64_t corner(std::int64_t (*form)(const levenshtein::Matrix&) noexcept, std::u32string_view rows,
                    std::u32string_view columns) {
  using levenshtein::Matrix;
  constexpr std::size_t kSymbols = 8;
  const std::vector<levenshtein::Symbol> rowSymbols(rows.begin(), rows.end());
  std::vector<levenshtein::Symbol> columnSymbols(columns.begin(), columns.end());
  columnSymbols.resize(columns.size() + Matrix::kOverrun);
  std::vector<levenshtein::Carry> carries(columnSymbols.size());
  std::vector<std::uint64_t> masks(kSymbols * Matrix::kMaxWords);
  const std::span<const levenshtein::Symbol> columnSpan(columnSymbols.data(), columns.size());
  const std::int64_t distance = form({rowSymbols, columnSpan, kSymbols, carries.data(), masks.data()});
  CHECK(masks == std::vector<std::uint64_t>(masks.size()));
  return distance;
}

void checkCorner(std::u32string_view rows, std::u32string_view columns, std::int64_t expected) {
  CHECK(corner(levenshtein::scalar::corner, rows, columns) == expected);
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) CHECK(corner(levenshtein::avx2::corner, rows, columns) == expected);
#endif
}

TEST_CASE("levenshtein: a swap at every place, across the borders of words and bands too") {
  const std::u32string text = RandomTexts(kSeed).of(U"\1\2\3\4\5", 600);
  for (std::size_t place = 0; place + 1 < text.size(); ++place) {
    std::u32string swapped = text;
    std::swap(swapped[place], swapped[place + 1]);
    const std::int64_t expected = swapped == text ? 0 : 1;
    CAPTURE(place);
    checkCorner(text, swapped, expected);
  }
}

TEST_CASE("levenshtein: every form of the bands at all kinds of heights and widths") {
  RandomTexts random(kSeed);
  for (std::size_t height = 1; height <= 1100; height += 1 + random.below(40)) {
    for (const std::size_t width : {std::size_t{1}, std::size_t{2}, std::size_t{4}, std::size_t{9}, random.below(70)}) {
      const std::u32string rows = random.of(U"\1\2\3", height);
      const std::u32string columns = random.of(U"\1\2\3\0", width);
      const std::int64_t expected = reference::levenshtein(rows, columns);
      CAPTURE(height);
      CAPTURE(width);
      checkCorner(rows, columns, expected);
    }
  }
}

}  // namespace

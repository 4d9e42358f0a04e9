/// Numbers, typed and printed: the way through the C library gives what the standard library's own does.
#include "stringhost/numbers.h"

#include <bit>
#include <cmath>
#include <doctest/doctest.h>
#include <limits>
#include <random>

#include "tests/support/skipped.h"

namespace numbers = stringhost::numbers;

namespace {

constexpr const char* kManyDigits = "0.1000000000000000055511151231257827021181583404541015625";
constexpr const char* kTyped[] = {"",     "0",    "-0",    "1.5",   "-1.5e3", ".5",     "5.",       "-.5",
                                  ".",    "-",    "+1",    " 1",    "1 ",     "1e",     "1e+",      "1e5x",
                                  "0x10", "-0X1", "1e999", "-1e9",  "1e-999", "0e-999", "0.0e99",   "5e-324",
                                  "1e-5", "inf",  "-Inf",  "nan",   "NAN",    "infi",   "infinity", "e5",
                                  "--1",  "1,5",  "١",     "1e308", "2e308",  "1e23",   kManyDigits};

}  // namespace

TEST_CASE("what is read, how far, and what is refused") {
  for (const std::string text : kTyped) {
    CAPTURE(text);
    double expected = 7;
    double number = 7;
    const auto first = numbers::read(text.data(), text.data() + text.size(), expected);
    const auto second = numbers::portable::read(text.data(), text.data() + text.size(), number);
    CHECK(second.ec == first.ec);
    CHECK(second.ptr == first.ptr);
    CHECK((std::isnan(expected) ? std::isnan(number) : number == expected));
  }
}

TEST_CASE("the shortest digits") {
  using Limits = std::numeric_limits<double>;
  for (const double number : {0.0, 1.0, 0.1, 1e-3, 1e-5, 1e20, 1e22, 1e23, 123456789012345680000.0, 0.30000000000000004,
                              Limits::max(), Limits::min(), Limits::denorm_min(), Limits::infinity()}) {
    CHECK(numbers::portable::shortest(number) == numbers::shortest(number));
    CHECK(numbers::portable::shortest(-number) == numbers::shortest(-number));
  }
}

TEST_CASE("the shortest digits of numbers of every size") {
#ifdef _WIN32
  return testing::skipped("the C library's own conversions are not exact");
#endif
  // At powers of two the neighbour below is nearer than the one above.
  for (int exponent = -1074; exponent < 1024; ++exponent) {
    const double number = std::ldexp(1.0, exponent);
    CHECK(numbers::portable::shortest(number) == numbers::shortest(number));
  }
  std::mt19937_64 engine(0x4E55'4D42'4552'5332);
  for (int round = 0; round < 20'000; ++round) {
    const std::uint64_t bits = engine();
    const double number = round % 2 == 0 ? std::bit_cast<double>(bits) : static_cast<double>(bits >> 20) / 1024;
    if (std::isnan(number)) continue;
    CAPTURE(number);
    REQUIRE(numbers::portable::shortest(number) == numbers::shortest(number));
  }
}

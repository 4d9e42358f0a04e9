/// Numbers as text.
#include "analysis/number_format.h"

#include <bit>
#include <doctest/doctest.h>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include "analysis/double_characters.h"
#include "tests/reference/number_format.h"

namespace {

using Limits = std::numeric_limits<double>;

constexpr std::uint64_t kSeed = 0x4E55'4D42'4552'5331;

std::string fixed(double value) {
  number_format::Text text;
  return {text.data(), number_format::writeFixed(value, text)};
}

std::string fixedByRule(double value) {
  number_format::Text text;
  return {text.data(), number_format::general::writeFixed(value, text)};
}

std::string scientific(double value, std::int32_t decimals) {
  number_format::Text text;
  return {text.data(), number_format::writeScientific(value, decimals, text)};
}

/// Doubles of many kinds: any bits, all sizes that are seen in practice, short decimals, short binary fractions.
class RandomDoubles {
 public:
  double operator()() {
    const std::uint64_t bits = engine_();
    const double sign = (bits & 1) != 0 ? 1.0 : -1.0;
    switch (bits >> 1 & 3) {
      case 0:
        return std::bit_cast<double>(engine_());
      case 1:
        return sign * std::ldexp(static_cast<double>(engine_()), static_cast<int>(engine_() % 120) - 120);
      case 2:
        return sign * static_cast<double>(engine_() >> engine_() % 64) / std::pow(10.0, engine_() % 12);
      default:
        return sign * std::ldexp(static_cast<double>(engine_() % 4096), static_cast<int>(engine_() % 130) - 70);
    }
  }

 private:
  std::mt19937_64 engine_{kSeed};
};

struct Case {
  double value;
  std::string_view text;
};

constexpr Case kFixed[] = {
    // Whole numbers, and short fractions.
    {0.0, "0.0"},
    {-0.0, "-0.0"},
    {1.0, "1.0"},
    {100.0, "100.0"},
    {-42.0, "-42.0"},
    {1.5, "1.50"},
    {0.5, "0.50"},
    {-2.5, "-2.50"},
    // Digits are dropped, not rounded.
    {0.1, "0.10"},
    {0.3, "0.299999999999999"},
    {123.456, "123.4560"},
    {1.0 / 3.0, "0.333333333333333"},
    {2.0 / 3.0, "0.666666666666666"},
    {3.14159, "3.14158999999999"},
    // The sign counts as a digit, and zeros of the whole part don't.
    {-1.0 / 3.0, "-0.33333333333333"},
    {-0.001, "-0.0010"},
    {1000.0 + 1.0 / 3.0, "1000.33333333333337"},
    {0.00001, "0.000010"},
    // Large numbers lose the point when they have 15 digits that count.
    {12345678901234.5, "12345678901234.50"},
    {-1234567891234.5, "-1234567891234.5"},
    {-12345678912345.5, "-12345678912345"},
    {123456789012345.5, "123456789012345.5"},
    {123456789112345.5, "123456789112345"},
    {123456789012345600.0, "12345678901234560"},
    {123456789012345678.0, "123456789012345680"},
    {1e20, "100000000000000000000.0"},
    {1e22, "10000000000000000000000.0"},
    // Small ones show what is in 99 decimals.
    {1e-20, "0.00000000000000000000999999999999999"},
    {-1e-20, "-0.0000000000000000000099999999999999"},
    {Limits::min(), "0.0"},
    {-Limits::denorm_min(), "-0.0"},
    {Limits::infinity(), "inf"},
    {-Limits::infinity(), "-inf"},
    {Limits::quiet_NaN(), "nan"},
};

TEST_CASE("fixed form: examples") {
  for (const Case& c : kFixed) {
    CHECK(fixed(c.value) == c.text);
    CHECK(fixedByRule(c.value) == c.text);
  }
  CHECK(fixed(std::copysign(Limits::quiet_NaN(), -1.0)) == "nan");
  CHECK(fixed(Limits::max()).starts_with("179769313486231570814527423731704356798070567525844996598917476803157"));
  CHECK(fixed(Limits::max()).size() == 309);
}

TEST_CASE("fixed form: the borders between the ways to write it, and of what doubles hold") {
  for (const double border : {0.0, Limits::denorm_min(), Limits::min(), 1e-99, 1e-98, 0x1p-28, 1e-5, 1.0, 1e8, 1e14,
                              1e15, 1e16, 0x1p52, 0x1p53, 0x1p62, 0x1p63, 0x1p64, Limits::max()}) {
    for (const double value : {std::nextafter(border, 0.0), border, std::nextafter(border, Limits::infinity())}) {
      for (const double signedValue : {value, -value}) {
        CAPTURE(signedValue);
        CHECK(fixed(signedValue) == reference::fixedNumber(signedValue));
        CHECK(fixedByRule(signedValue) == reference::fixedNumber(signedValue));
      }
    }
  }
}

TEST_CASE("fixed form: random numbers give what the C library gives") {
  RandomDoubles random;
  for (int i = 0; i < 20'000; ++i) {
    const double value = random();
    CAPTURE(value);
    const std::string expected = reference::fixedNumber(value);
    REQUIRE(fixed(value) == expected);
    REQUIRE(fixedByRule(value) == expected);
  }
}

TEST_CASE("scientific form: examples") {
  CHECK(scientific(1234.56, 2) == "1.23e+03");
  CHECK(scientific(1234.56, 0) == "1e+03");
  CHECK(scientific(1234.56, -1) == "1e+03");
  CHECK(scientific(1234.56, std::numeric_limits<std::int32_t>::min()) == "1e+03");
  CHECK(scientific(-0.000123456, 5) == "-1.23456e-04");
  CHECK(scientific(0.0, 3) == "0.000e+00");
  CHECK(scientific(-0.0, 0) == "-0e+00");
  CHECK(scientific(Limits::max(), 3) == "1.798e+308");
  CHECK(scientific(Limits::denorm_min(), 3) == "4.941e-324");
  CHECK(scientific(2.5, 0) == "2e+00");  // ties go to the even digit
  // The library's own arithmetic on the precision overflows just below the largest number.
  for (const std::int32_t digits : {600, 2'147'483'641, 2'147'483'642, 2'147'483'647}) {
    CHECK(scientific(0.0, digits) == "0." + std::string(496, '0'));
    CHECK(scientific(-0.0, digits) == "-0." + std::string(495, '0'));
  }
  for (const std::int32_t digits : {-1, 0, 3, 1000, std::numeric_limits<std::int32_t>::max()}) {
    CHECK(scientific(Limits::infinity(), digits) == "inf");
    CHECK(scientific(-Limits::infinity(), digits) == "-inf");
    CHECK(scientific(std::copysign(Limits::quiet_NaN(), -1.0), digits) == "nan");
  }
}

TEST_CASE("scientific form: any number of decimals gives what the C library gives") {
  RandomDoubles random;
  for (int decimals = 0; decimals <= 1000; ++decimals) {
    for (const double value : {random(), random(), random(), Limits::denorm_min(), -Limits::max(), Limits::min()}) {
      CAPTURE(value);
      CAPTURE(decimals);
      REQUIRE(scientific(value, decimals) == reference::scientificNumber(value, decimals));
    }
  }
}

TEST_CASE("both routes to a double's characters give the same, also where they don't fit") {
  using Write = char*(char*, const char*, double, std::chars_format, int) noexcept;
  const auto written = [](Write* write, double value, std::chars_format format, int decimals, std::size_t room) {
    std::array<char, 1100> text;
    const char* const end = write(text.data(), text.data() + room, value, format, decimals);
    return end == nullptr ? "too long" : std::string(static_cast<const char*>(text.data()), end);
  };
  RandomDoubles random;
  for (int round = 0; round < 20'000; ++round) {
    const double special[] = {0.0, Limits::infinity(), Limits::quiet_NaN(), Limits::denorm_min(), Limits::max()};
    const double value = round < 200 ? std::copysign(special[round % 5], round % 2 - 0.5) : random();
    if (std::isnan(value) && std::signbit(value)) continue;  // no sign of a NaN is ever shown
    const auto format = round % 3 == 0 ? std::chars_format::fixed : std::chars_format::scientific;
    const int decimals = round * 7 % (round % 5 == 0 ? 767 : 40);
    const std::size_t room = round % 4 == 0 ? static_cast<std::size_t>(round % 60) : 1100;
    CAPTURE(value);
    CAPTURE(decimals);
    CAPTURE(room);
    REQUIRE(written(double_characters::formatted::write, value, format, decimals, room) ==
            written(double_characters::write, value, format, decimals, room));
  }
}

TEST_CASE("scientific form: the end of a text beyond 498 characters is missing") {
  CHECK(scientific(1.0, 492) == "1." + std::string(492, '0') + "e+00");
  CHECK(scientific(-1.0, 492) == "-1." + std::string(492, '0') + "e+0");
  CHECK(scientific(1.0, 10'000) == "1." + std::string(496, '0'));
  const std::string all = scientific(Limits::min(), 2000);
  CHECK(all.size() == 498);
  CHECK(scientific(Limits::min(), std::numeric_limits<std::int32_t>::max()) == all);
}

}  // namespace

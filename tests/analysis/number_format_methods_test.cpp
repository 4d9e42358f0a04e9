/// Numbers as text, as a program of the host calls for them.
#include <cmath>
#include <limits>

#include "tests/reference/number_format.h"
#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kStr[] = "StrZQV";
constexpr char kScientific[] = "ScientificStrZQV";

TEST_CASE("numbers on every host") {
  for (const double version : kVersions) {
    CAPTURE(version);
    Session session(Options{.version = version});
    for (const double value : {0.0, -0.0, 1.0, -2.5, 0.1, 1.0 / 3.0, 123.456, 1e-5, 1e20, 123456789012345600.0,
                               std::numeric_limits<double>::max(), -std::numeric_limits<double>::infinity()}) {
      CAPTURE(value);
      checkText(call(session, kStr, {value}), reference::fixedNumber(value), kEncodingASCII);
      for (const std::int32_t digits : {0, 2, 17, 490, 600}) {
        checkText(call(session, kScientific, {value, digits}), reference::scientificNumber(value, digits),
                  kEncodingASCII);
      }
    }
    checkText(call(session, kStr, {std::copysign(std::nan(""), -1.0)}), "nan", kEncodingASCII);
    checkText(call(session, kScientific, {-std::nan(""), 3}), "nan", kEncodingASCII);
    checkText(call(session, kScientific, {1234.56, -5}), "1e+03", kEncodingASCII);
    CHECK(call(session, kScientific, {0.1, std::numeric_limits<std::int32_t>::max()}).text().bytes.size() == 498);
  }
}

TEST_CASE("a number is built into a string, and nothing else is asked of the host") {
  Session session;
  const std::vector<std::string> expected = {"REALBuildString", "REALSetStringEncoding"};
  CHECK(call(session, kStr, {1.5}).services == expected);
  CHECK(call(session, kScientific, {1.5, 600}).services == expected);
}

}  // namespace

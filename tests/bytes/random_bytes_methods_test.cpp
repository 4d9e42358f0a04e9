#include <cstdlib>

#include "tests/support/methods.h"

using namespace testing;

namespace {

constexpr char kMethod[] = "RandomBytesStringZQV";

}  // namespace

TEST_CASE("RandomBytesStringZQV: every byte of the range comes up, and no other") {
  Session session;
  const Text many = call(session, kMethod, {100'000, false}).text();
  const Text printable = call(session, kMethod, {100'000, true}).text();
  for (int value = 0; value < 256; ++value) {
    CAPTURE(value);
    CHECK(many.bytes.find(static_cast<char>(value)) != std::string::npos);
    CHECK((printable.bytes.find(static_cast<char>(value)) != std::string::npos) == (value >= 0x20 && value <= 0x7F));
  }
}

TEST_CASE("RandomBytesStringZQV: no length, no bytes") {
  Session session;
  for (const std::int32_t length : {0, -1, INT32_MIN}) checkNull(call(session, kMethod, {length, true}));
  checkNull(call({.failing = {{"REALBuildString", 0}}}, kMethod, {5, false}));
}

TEST_CASE("RandomBytesStringZQV: one number of the shared generator for each byte, in order") {
  constexpr std::int32_t kLength = 300;
  Session session;
  for (const bool isASCII : {false, true}) {
    std::srand(43);
    std::string expected(kLength, '\0');
    for (char& byte : expected) byte = static_cast<char>(isASCII ? 32 + std::rand() % 96 : std::rand() & 0xFF);
    const int next = std::rand();

    std::srand(43);
    CHECK(call(session, kMethod, {kLength, isASCII}).text().bytes == expected);
    checkNull(call(session, kMethod, {0, isASCII}));
    CHECK(std::rand() == next);
  }
}

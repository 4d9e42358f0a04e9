/// The bitwise operations.
#include "bytes/bitwise.h"

#include "memory/limits.h"
#include "tests/reference/bitwise.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;
using bitwise::Operation;

namespace {

constexpr std::uint32_t kSeed = 0x584F'5232;
constexpr Operation kOperations[] = {Operation::kAnd, Operation::kOr, Operation::kXor, Operation::kXorPosition};

std::string combined(Operation operation, std::string_view data, std::string_view mask, std::int32_t offset = 0) {
  const PlacedBytes in(data, data.size() % 32);
  const PlacedBytes partner(mask, mask.size() % 32);
  const PlacedBytes out(data.size(), (data.size() + mask.size()) % 32);
  bitwise::combine(operation, in.span(), partner.span(), offset, out.span());
  CHECK(out.marginsIntact());
  return out.text();
}

struct Case {
  const char* name;
  Operation operation;
  std::string_view data;
  std::string_view mask;
  std::int32_t offset;
  std::string_view result;
};

constexpr Case kCases[] = {
    {"a mask of one byte", Operation::kAnd, "\xFF\x0F\xF0", "\x3C", 0, "\x3C\x0C\x30"},
    {"the tail of a longer mask plays no part", Operation::kOr, "AB", "\x20\x20\0\0"sv, 0, "ab"},
    {"the mask begins at the offset", Operation::kXor, "abcd", "\x01\x02", 1, "\x63\x63\x61\x65"},
    {"an offset before the mask", Operation::kXor, "abcd", "\x01\x02", -1, "\x63\x63\x61\x65"},
    {"a whole mask before the mask", Operation::kXor, "ab", "\x01\x02", -2, "``"},
    {"positions", Operation::kXorPosition, "\0\0\0\0"sv, "\0"sv, 0, "\0\1\2\3"sv},
};

TEST_CASE("bitwise: examples") {
  for (const Case& c : kCases) {
    CAPTURE(c.name);
    CHECK(combined(c.operation, c.data, c.mask, c.offset) == c.result);
  }
  CHECK(bitwise::describedSize(kMaxSize - 5) == kMaxSize);
  CHECK(combined(Operation::kXorPosition, std::string(300, '\0'), "\0"sv).substr(254, 4) == "\xFE\xFF\0\1"sv);
}

void checkAllOperations(const std::string& data, const std::string& mask, std::int32_t offset) {
  CAPTURE(data.size());
  CAPTURE(mask.size());
  for (const Operation operation : kOperations) {
    CHECK((combined(operation, data, mask, offset) == reference::combined(operation, data, mask, offset)));
  }
}

TEST_CASE("bitwise: every length of data and mask gives what the reference gives") {
  RandomBytes random(kSeed);
  for (std::size_t length = 0; length <= 300; ++length) {
    for (const std::size_t maskLength :
         {std::size_t{1}, std::size_t{2}, std::size_t{4}, 1 + random.below(40), 1 + random.below(400), length + 1}) {
      checkAllOperations(random(length), random(maskLength), static_cast<std::int32_t>(random.below(1000)) - 500);
    }
  }
}

TEST_CASE("bitwise: long data meets the end of the mask again and again") {
  RandomBytes random(kSeed);
  for (const std::size_t maskLength :
       {1U, 2U, 3U, 7U, 127U, 128U, 129U, 1000U, 1023U, 1024U, 1025U, 2047U, 4999U, 5001U}) {
    const std::string data = random(5000 + random.below(200));
    const std::string mask = random(maskLength);
    for (const std::int32_t offset : {0, 1, -1, INT32_MAX, INT32_MIN}) checkAllOperations(data, mask, offset);
  }
}

TEST_CASE("bitwise: the wide kernel agrees with the scalar one, from any position on") {
  RandomBytes random(kSeed);
  for (std::size_t length = 0; length <= 700; ++length) {
    const std::size_t period = 128 + random.below(400);
    const std::string once = random(period);
    const PlacedBytes in(random(length), random.below(32));
    const PlacedBytes mask(once + once.substr(0, bitwise::RepeatingMask::kSlack), random.below(32));
    const PlacedBytes scalarOut(length, random.below(32));
    const PlacedBytes wideOut(length, random.below(32));
    const std::size_t position = random.below(300);
    CAPTURE(length);
    for (const Operation operation : kOperations) {
      bitwise::scalar::combine(operation, in.span(), {mask.span().data(), period}, position, scalarOut.span().data());
      IN_WIDE_FORM(bitwise, {
        form::combine(operation, in.span(), {mask.span().data(), period}, position, wideOut.span().data());
        CHECK((scalarOut.text() == wideOut.text()));
        CHECK(wideOut.marginsIntact());
      });
    }
  }
}

}  // namespace

/// Hex dumps.
#include "analysis/hex_dump.h"

#include <limits>

#include "tests/reference/hex_dump.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;
using reference::DumpLayout;

namespace {

constexpr std::uint32_t kSeed = 0x4455'4D50;
constexpr std::int64_t kEndless = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();

using Kernel = void (*)(ByteView, const hex_dump::Layout&, ByteSpan) noexcept;

std::string dumped(std::string_view bytes, const DumpLayout& layout, Kernel write = hex_dump::write) {
  const hex_dump::Layout seen{static_cast<std::int64_t>(layout.groupDigits),
                              static_cast<std::int64_t>(layout.lineGroups),
                              viewOf(layout.lineStart),
                              viewOf(layout.lineEnd),
                              viewOf(layout.spacer),
                              viewOf(layout.filler)};
  const auto size = static_cast<std::size_t>(hex_dump::size(std::ssize(bytes), seen));
  return written([&](ByteView in, ByteSpan out) { write(in, seen, out); }, bytes, size, bytes.size() % 997);
}

struct Case {
  const char* name;
  std::string_view bytes;
  DumpLayout layout;
  std::string_view dump;
};

TEST_CASE("hex dump: examples") {
  const Case cases[] = {
      {"zeros fill", "ABC", {2, 2, "", "|", " ", ""}, "41 42|43 00|"},
      {"frames", "Hello", {4, 2, "(", ")\n", "-", "."}, "(4865-6C6C)\n(6F..-....)\n"},
      {"fill of two characters", "\0\xFF\x10"sv, {2, 8, "", "\n", " ", "--"}, "00 FF 10 -- -- -- -- --\n"},
      {"fill is cut off", "A", {5, 1, "", "", "", "xyz"}, "41xyz"},
      {"fill goes on from group to group", "A", {3, 3, "", "", " ", "wxyz"}, "41w xyz wxy"},
      {"a byte split between groups", "\xAB", {1, 2, "", "", " ", ""}, "A B"},
      {"a byte split between lines", "\xAB\xCD", {3, 1, "", "|", "", ""}, "ABC|D00|"},
      {"a line per digit", "\xAB", {1, 1, "<", ">", "never", ""}, "<A><B>"},
      {"nothing", "", {2, 2, "(", ")", " ", ""}, ""},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    CHECK(dumped(c.bytes, c.layout) == c.dump);
  }
}

void checkAgainstReference(std::string_view bytes, const DumpLayout& layout) {
  CAPTURE(bytes.size());
  CAPTURE(layout.groupDigits);
  CAPTURE(layout.lineGroups);
  const std::string expected = reference::hexDump(bytes, layout);
  CHECK((dumped(bytes, layout) == expected));
  IN_EVERY_FORM(hex_dump, CHECK((dumped(bytes, layout, form::write) == expected)));
}

TEST_CASE("hex dump: any layout gives what the reference gives") {
  RandomBytes random(kSeed);
  for (int i = 0; i < 3000; ++i) {
    const DumpLayout layout{1 + random.below(i % 10 == 0 ? 400 : 12),
                            1 + random.below(i % 11 == 0 ? 300 : 20),
                            random(random.below(6)),
                            random(random.below(i % 13 == 0 ? 300 : 4)),
                            random(random.below(i % 17 == 0 ? 270 : 5)),
                            random(random.below(4))};
    checkAgainstReference(random(1 + random.below(i % 5 == 0 ? 2000 : 150)), layout);
  }
}

TEST_CASE("hex dump: every length of the usual layouts") {
  RandomBytes random(kSeed);
  for (std::size_t length = 1; length <= 600; ++length) {
    const std::string bytes = random(length);
    checkAgainstReference(bytes, {2, 16, "", "\n", " ", ""});
    checkAgainstReference(bytes, {2, 300, "> ", "\r\n", ":", "--"});
    checkAgainstReference(bytes, {64, 1, "", "\n", "", ""});
    checkAgainstReference(bytes, {16, 300, "", "\n", "", "-"});
  }
  checkAgainstReference("A", {2, 100'000, "", "\n", " ", ""});
  checkAgainstReference(random(5000), {2, 4000, "", "\n", ", ", "."});
}

TEST_CASE("hex dump: sizes don't overflow") {
  const std::uint8_t byte = 0;
  const ByteView large(&byte, static_cast<std::size_t>(kLargest));  // only its size is looked at
  const hex_dump::Layout plain{2, 16, {}, large.first(1), large.first(1), {}};
  CHECK(hex_dump::digitCount(17, plain) == 64);
  CHECK(hex_dump::size(17, plain) == 96);
  CHECK(hex_dump::size(kLargest, plain) == 48 * (kLargest / 16 + 1));
  const hex_dump::Layout longLine{kLargest, kLargest, {}, {}, {}, {}};
  CHECK(hex_dump::digitCount(1, longLine) == kLargest * kLargest);
  CHECK(hex_dump::digitCount(kLargest, longLine) == kLargest * kLargest);
  CHECK(hex_dump::size(1, longLine) == kLargest * kLargest);
  const hex_dump::Layout longTexts{kLargest, kLargest, large, large, large, {}};
  CHECK(hex_dump::size(1, longTexts) == kLargest * kLargest + kLargest * (kLargest + 1));
  const hex_dump::Layout manyLines{1, 1, large, large, large, {}};
  CHECK(hex_dump::size(kLargest, manyLines) == kEndless);
}

}  // namespace

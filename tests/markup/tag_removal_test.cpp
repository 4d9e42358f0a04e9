#include "markup/tag_removal.h"

#include "tests/reference/markup.h"
#include "tests/support/kernels.h"

namespace {

using namespace std::string_view_literals;

using Size = std::int64_t (*)(ByteView, ByteView) noexcept;

std::string replaced(Size sizeKernel, std::string_view text, std::string_view replacement, std::size_t offset = 0) {
  const PlacedBytes input(text, offset);
  const std::int64_t size = sizeKernel(input.span(), viewOf(replacement));
  const PlacedBytes output(static_cast<std::size_t>(size), offset / 3);
  tags::replace(input.span(), viewOf(replacement), output.span());
  CHECK(output.marginsIntact());
  return output.text();
}

struct Case {
  const char* name;
  std::string_view text;
  std::string_view kept;
  std::string_view replaced;  ///< with "*"
};

constexpr Case kCases[] = {
    {"tags", "<b>bold</b> text", "bold text", "*bold** text"},
    {"nested brackets", "a<b<c>d>e", "ae", "a***e"},
    {"a stray closing bracket", "a>b<c", "ac", "a*c"},
    {"closing brackets in a row", "a>>b<c<d", "ad", "a**d"},
    {"an unclosed tag", "x < y", "x ", "x **"},
    {"zero bytes", "a\0b<\0c>\0"sv, "ab", "ab*"},
};

void agreesWithTwin(ShorteningKernel remove, Size size) {
  for (const Case& c : kCases) {
    CAPTURE(c.name);
    CHECK(shortened(remove, c.text) == c.kept);
    CHECK(replaced(size, c.text, "*") == c.replaced);
    CHECK(replaced(size, c.text, "") == c.kept);
  }
  RandomBytes random(26);
  constexpr std::string_view kAlphabets[] = {
      "abcdefghijklmnopqrstuvwxyz ", "abcdefghijklmnopqrstuvwxyz\0<>"sv, "<>", "<<>ab", "<>>\0x"sv, "<a>b"};
  constexpr std::string_view kReplacements[] = {"", " ", "ab", "<longer than a vector of bytes, with brackets>"};
  for (std::size_t length = 0; length <= 200; ++length) {
    CAPTURE(length);
    for (const std::string_view alphabet : kAlphabets) {
      const std::string text = random.of(alphabet, length);
      const std::size_t offset = random.below(32);
      CHECK(shortened(remove, text, offset) == reference::withoutTags(text));
      const std::string_view with = kReplacements[random.below(std::size(kReplacements))];
      CHECK(replaced(size, text, with, offset) == reference::withoutTags(text, with));
    }
    // Long stretches at one depth, on either side of zero.
    for (const std::string_view brackets : {">", ">>", "<", "<<<", "<>", "><"}) {
      const std::string text = std::string(brackets) + std::string(length, 'x');
      CHECK(shortened(remove, text) == reference::withoutTags(text));
    }
    // Tags by turns, as in markup.
    std::string markup;
    while (markup.size() < length) {
      markup += random.of("abcdefgh ", random.below(30)) + "<" + random.of("abc=\"/", random.below(20)) + ">";
    }
    CHECK(shortened(remove, markup) == reference::withoutTags(markup));
  }
}

}  // namespace

TEST_CASE("tags: every form agrees with the naive twin") {
  IN_EVERY_FORM(tags, agreesWithTwin(form::remove, form::replacedSize));
}

TEST_CASE("tags: sizes beyond 32 bits are counted, not made") {
  const std::string text = "<" + std::string(70'000, 'x');
  const std::string replacement(70'000, 'y');
  CHECK(tags::replacedSize(viewOf(text), viewOf(replacement)) == 4'900'000'000);
}

TEST_CASE("tags: a replacement ends at its first zero byte") {
  CHECK(tags::untilZeroByte(viewOf("ab\0c"sv)).size() == 2);
  CHECK(tags::untilZeroByte(viewOf("\0c"sv)).empty());
  CHECK(tags::untilZeroByte(viewOf("abc")).size() == 3);
  CHECK(tags::untilZeroByte({}).empty());
}

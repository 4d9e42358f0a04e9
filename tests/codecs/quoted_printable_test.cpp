#include "codecs/quoted_printable.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "codecs/quoted_printable_encoder.h"
#include "tests/reference/quoted_printable.h"
#include "tests/support/kernels.h"

namespace {

std::string encoded(std::string_view bytes, std::int32_t lineLimit = 72, std::size_t offset = 0) {
  const PlacedBytes input(bytes, offset);
  OutputBuffer text;
  REQUIRE(quoted_printable::encode(input.span(), lineLimit, text));
  CHECK(text.size() <= EncodeData::sizeBound(std::ssize(bytes)));
  CHECK(text.size() == EncodeData(input.span(), lineLimit).measure());
  return {reinterpret_cast<const char*>(text.data()), static_cast<std::size_t>(text.size())};
}

struct EncodingCase {
  const char* name;
  std::string_view bytes;
  std::int32_t lineLimit;
  std::string_view text;
};

constexpr EncodingCase kEncoding[] = {
    {"nothing", "", 72, ""},
    {"a blank before a line break", "a \r\nb", 72, "a=20\r\nb=\r\n"},
    {"a tab before a line break, after another blank", "a \t\nb\n", 72, "a =09\r\nb\r\n"},
    {"a blank at the end", "a ", 72, "a "},
    {"a blank alone in the last line", "a\n ", 72, "a\r\n =\r\n"},
    {"line breaks of every form", "a\n\rb\r\nc\rd\ne", 72, "a\r\nb\r\nc\r\nd\r\ne=\r\n"},
    {"control characters", "\x01\x7F\t!", 72, "=01=7F\t!"},
    {"limit 10: eight characters a line", "abcdefghijk", 10, "abcdefgh=\r\nijk"},
    {"limit 10: an escape that would be cut", "abcdef=g", 10, "abcdef=\r\n=3Dg"},
    {"limit 2: a break before every character", "AB", 2, "=\r\nA=\r\nB"},
    {"limit 4: a break before every escape", "=\n=A", 4, "=\r\n=3D\r\n=\r\n=3D=\r\nA=\r\n"},
    {"limit 5: one escape a line", "==", 5, "=3D=\r\n=3D"},
};

constexpr Example kDecoding[] = {
    {"nothing", "", ""},
    {"an escape", "a=3Db", "a=b"},
    {"soft breaks of every form", "a=\nb=\rc=\n\rd", "abcd"},
    {"something after blanks", "ab= x\r\ncd", "abcd"},
    {"something after blanks, up to the end", "ab= x=41", "ab"},
    {"hard breaks of every form", "a\r\nb\n\rc\rd\ne", "a\nb\nc\nd\ne"},
    {"no first digit", "a=G1b", "ab"},
    {"a line feed as second digit", "a=4\nb", "ab"},
    {"an equals sign as first digit", "a==41b", "a1b"},
    {"cut after the equals sign", "a=", "a"},
};

constexpr std::int32_t kLineLimits[] = {0,  1,  2,  3,  4,  5,   6,   7,
                                        10, 33, 72, 76, 78, 998, 999, std::numeric_limits<std::int32_t>::max()};

/// What the inputs are made of: words, few and many escapes, blanks and every form of line break.
constexpr std::string_view kAlphabets[] = {
    "abcdefghijklmnopqrstuvwxyz",
    "abcdefgh ijklmnop qrstuvwxyz \n",
    "ab\xC3\xA9 ",
    "\xE9=\x7F",
    " \t\r\na",
    "\r\n",
    " ",
};

void decoderAgreesWithTwin(ShorteningKernel decoder) {
  const auto run = [decoder](std::string_view text, std::size_t offset) { return shortened(decoder, text, offset); };
  checkAgainstTwin(
      {"abcdefghijklmnopqrstuvwxyz=", "=4", "=\r\n", "a=4E\r\n", "=f \t\n", "=0aA", "abcdefghijklmno\r\n=", "\r\n"},
      run, reference::quotedPrintableDecoded);
}

std::string decoded(std::string_view text) { return shortened(quoted_printable::decode, text); }

}  // namespace

TEST_CASE("quoted-printable encoding: examples") {
  for (const EncodingCase& c : kEncoding) {
    CAPTURE(c.name);
    CHECK(encoded(c.bytes, c.lineLimit) == c.text);
    CHECK(reference::quotedPrintableEncoded(c.bytes, c.lineLimit) == c.text);
  }
  const std::string run(100, 'a');
  CHECK(encoded(run) == run.substr(0, 70) + "=\r\n" + run.substr(70));
  CHECK(encoded(run, 1) == encoded(run));
  CHECK(encoded(run, -5) == encoded(run));
}

TEST_CASE("quoted-printable encoding agrees with the naive twin") {
  RandomBytes random(34);
  for (std::size_t length = 0; length <= 2000; length += 1 + length / 20) {
    for (const std::string_view alphabet : kAlphabets) {
      const std::string bytes = random.of(alphabet, length);
      for (const std::int32_t limit : kLineLimits) {
        CAPTURE(length);
        CAPTURE(alphabet);
        CAPTURE(limit);
        CHECK(encoded(bytes, limit, random.below(32)) == reference::quotedPrintableEncoded(bytes, limit));
      }
    }
  }
}

TEST_CASE("quoted-printable encoding: both forms of the escapes agree at every length and alignment") {
  RandomBytes random(343);
  for (std::size_t length = 0; length <= 130; ++length) {
    const PlacedBytes input(random.of(kAlphabets[length % std::size(kAlphabets)], length), random.below(32));
    for (const std::size_t limit : {32U, 64U, 128U}) {
      std::vector<std::uint8_t> plain(3 * limit + quoted_printable::kEscapeMargin);
      std::vector<std::uint8_t> wide(plain.size());
      const auto expected = quoted_printable::scalar::escape(input.span(), limit, plain.data());
      CAPTURE(length);
      IN_WIDE_FORM(quoted_printable, {
        const auto done = form::escape(input.span(), limit, wide.data());
        CHECK(done.in == expected.in);
        CHECK(std::equal(plain.data(), expected.out, wide.data(), done.out));
      });
    }
  }
}

TEST_CASE("quoted-printable decoding: examples") {
  checkExamples(kDecoding, decoded, reference::quotedPrintableDecoded);
}

TEST_CASE("quoted-printable decoding: every form agrees with the naive twin") {
  IN_EVERY_FORM(quoted_printable, decoderAgreesWithTwin(form::decode));
}

TEST_CASE("quoted-printable decoding: every text of five characters around the end of a vector") {
  constexpr std::string_view kCharacters = "=\r\n4 x";
  constexpr unsigned kCount = 6 * 6 * 6 * 6 * 6;
  for (unsigned choice = 0; choice < kCount; ++choice) {
    std::string text(70, 'x');
    for (unsigned i = 0, rest = choice; i < 5; ++i, rest /= 6) text[29 + i] = kCharacters[rest % 6];
    const std::string expected = reference::quotedPrintableDecoded(text);
    IN_EVERY_FORM(quoted_printable, REQUIRE(shortened(form::decode, text) == expected));
  }
}

/// Percent-encoding and decoding.
#include "codecs/url.h"

#include "memory/limits.h"
#include "tests/reference/url.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

using Kernel = std::size_t (*)(ByteView, url::Options, ByteSpan) noexcept;

std::string run(Kernel kernel, std::string_view input, int options, std::size_t room, std::size_t offset) {
  const auto withOptions = [&](ByteView in, ByteSpan out) { return kernel(in, url::Options(options), out); };
  return written(withOptions, input, room, offset);
}

std::string encoded(std::string_view bytes, int options, Kernel kernel = url::encode, std::size_t offset = 0) {
  return run(kernel, bytes, options, static_cast<std::size_t>(url::encodingReserve(std::ssize(bytes))), offset);
}

std::string decoded(std::string_view text, int options, Kernel kernel = url::decode, std::size_t offset = 0,
                    std::size_t room = 0) {
  return run(kernel, text, options, text.size() + room, offset);
}

struct Case {
  const char* name;
  int options;
  std::string_view input;
  std::string_view output;
};

constexpr Case kEncoding[] = {
    {"spaces and plus signs", 0, "a b+c", "a%20b+c"},
    {"spaces as plus signs", 1, "a b+c", "a+b%2Bc"},
    {"plus signs escaped", 2, "a b+c", "a%20b%2Bc"},
    {"both bits are as none", 3, "a b+c", "a%20b+c"},
    {"higher bits don't count", -3, "a b+c", "a+b%2Bc"},
    {"what is not escaped", 0, "!*-.@_azAZ09", "!*-.@_azAZ09"},
    {"neighbours of what is not escaped", 0, "/:?[`{\0\x7F"sv, "%2F%3A%3F%5B%60%7B%00%7F"},
};

constexpr Case kDecoding[] = {
    {"a plus sign stays", 2, "a+b%20c", "a+b c"},
    {"a plus sign is a space", 1, "a+b%20c", "a b c"},
    {"an escaped plus sign is one", 1, "%2B+", "+ "},
    {"digits of both cases", 0, "%41%62%e9%E9%4g", "Ab\xE9\xE9\x40"},
    {"characters that are no digits", 0, "%zz%G1", "\0\x01"sv},
    {"a percent sign as a digit", 0, "%%4g", "\x04g"},
    {"a plus sign as a digit", 1, "%+1%1+", "\x01\x10"},
    {"one digit at the end", 0, "a%4", "a@"},
};

/// Runs that need nothing, long and short, behind one another.
void agreesOnRuns(Kernel encode, Kernel decode) {
  RandomBytes random(0x55);
  for (int round = 0; round < 200; ++round) {
    const int options = round % 4;
    std::string text;
    for (int i = 0; i < 4; ++i) text += random.of("abc+", random.below(400)) + random.of("4% /\xE9", random.below(40));
    const auto offset = static_cast<std::size_t>(round);
    CHECK(encoded(text, options, encode, offset) == reference::urlEncoded(text, options));
    CHECK(decoded(text, options, decode, offset) == reference::urlDecoded(text, options));
  }
}

void agreesWithTwins(Kernel encode, Kernel decode) {
  agreesOnRuns(encode, decode);
  const std::string anything = RandomBytes(3986)(40) + '%';
  for (int options = 0; options < 4; ++options) {
    checkAgainstTwin(
        {"plain", "a b+c/d", " \xE9", "\xC3\xA9\xE2\x82\xAC", "+x", anything},
        [&](auto bytes, auto offset) { return encoded(bytes, options, encode, offset); },
        [&](auto bytes) { return reference::urlEncoded(bytes, options); });
    for (const std::size_t room : {0U, 64U}) {
      checkAgainstTwin(
          {"plain+", "%", "some text and few escapes%", "%41+", "%%0aF", anything},
          [&](auto text, auto offset) { return decoded(text, options, decode, offset, room); },
          [&](auto text) { return reference::urlDecoded(text, options); });
    }
  }
}

}  // namespace

TEST_CASE("url: examples") {
  for (const Case& c : kEncoding) {
    CAPTURE(c.name);
    CHECK(encoded(c.input, c.options) == c.output);
  }
  for (const Case& c : kDecoding) {
    CAPTURE(c.name);
    CHECK(decoded(c.input, c.options) == c.output);
  }
}

TEST_CASE("url: the longest inputs that are taken, whatever their bytes") {
  CHECK(url::encodedBound(715'827'879) == kMaxSize);
  CHECK(url::encodedBound(715'827'880) > kMaxSize);
  CHECK(url::decodedBound(kMaxSize) == kMaxSize);
}

TEST_CASE("url: every byte by every choice of options, in a vector and alone") {
  for (int byte = 0; byte < 256; ++byte) {
    CAPTURE(byte);
    const std::string one(1, static_cast<char>(byte));
    const std::string many(32, static_cast<char>(byte));
    for (int options = 0; options < 4; ++options) {
      CHECK(encoded(one, options) == reference::urlEncoded(one, options));
      CHECK(encoded(many, options) == reference::urlEncoded(many, options));
      const std::string escape = "%" + one + "7";
      CHECK(decoded(escape, options) == reference::urlDecoded(escape, options));
    }
  }
}

TEST_CASE("url: every form agrees with the naive twins") {
  IN_EVERY_FORM(url, agreesWithTwins(form::encode, form::decode));
#ifdef WIDE_AVX512
  if (cpu::hasAvx512()) agreesWithTwins(url::avx512::encode, url::avx2::decode);
#endif
}

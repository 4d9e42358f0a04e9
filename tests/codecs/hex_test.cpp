/// The hex codec.
#include "codecs/hex.h"

#include <doctest/doctest.h>
#include <string>
#include <string_view>

#include "memory/limits.h"
#include "tests/reference/hex.h"
#include "tests/support/placed_bytes.h"
#include "tests/support/random_bytes.h"

using namespace std::string_view_literals;

namespace {

constexpr std::uint32_t kSeed = 0x4845'5821;

using Kernel = void (*)(ByteView, ByteSpan) noexcept;

std::string result(Kernel kernel, std::string_view input, std::size_t outputSize, std::size_t offset) {
  const PlacedBytes in(input, offset % 32);
  const PlacedBytes out(outputSize, offset / 32);
  kernel(in.span(), out.span());
  CHECK(out.marginsIntact());
  return out.text();
}

std::string encoded(std::string_view bytes, Kernel kernel = hex::encode, std::size_t offset = 0) {
  return result(kernel, bytes, static_cast<std::size_t>(hex::encodedSize(std::ssize(bytes))), offset);
}

std::string decoded(std::string_view digits, Kernel kernel = hex::decode, std::size_t offset = 0) {
  return result(kernel, digits, static_cast<std::size_t>(hex::decodedSize(std::ssize(digits))), offset);
}

struct Case {
  const char* name;
  std::string_view text;
  std::string_view bytes;
};

constexpr Case kEncoding[] = {
    {"nothing", "", ""},
    {"lowest and highest bytes", "007FFF", "\0\x7F\xFF"sv},
    {"the UTF-8 bytes of a letter", "C3A9", "\xC3\xA9"},
};

constexpr Case kDecoding[] = {
    {"nothing", "", ""},
    {"both letter cases", "4a4B", "JK"},
    {"an unpaired last character is ignored", "ABC", "\xAB"},
    {"a single character is no pair", "A", ""},
    {"a character that is no digit counts as 0", "zz41", "\0A"sv},
    {"blanks are not skipped", "0A 0B", "\x0A\0"sv},
    {"a prefix is not skipped", "0x41", "\0A"sv},
};

TEST_CASE("hex: examples of encoding") {
  for (const Case& c : kEncoding) {
    CAPTURE(c.name);
    CHECK(encoded(c.bytes) == c.text);
  }
}

TEST_CASE("hex: examples of decoding") {
  for (const Case& c : kDecoding) {
    CAPTURE(c.name);
    CHECK(decoded(c.text) == c.bytes);
  }
}

TEST_CASE("hex: the longest input whose digits can be had") {
  CHECK(hex::encodedSize(0x3FFF'FFFF) <= kMaxSize);
  CHECK(hex::encodedSize(0x4000'0000) > kMaxSize);
}

TEST_CASE("hex: every pair of characters decodes as the reference says") {
  std::string pairs;
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      pairs += static_cast<char>(first);
      pairs += static_cast<char>(second);
    }
  }
  CHECK(decoded(pairs) == reference::hexDecoded(pairs));
  CHECK(decoded(pairs, hex::scalar::decode) == reference::hexDecoded(pairs));
}

TEST_CASE("hex: all forms agree with the reference at every length, and decoding undoes encoding") {
  RandomBytes random(kSeed);
  for (std::size_t length = 0; length <= 200; ++length) {
    CAPTURE(length);
    const std::string bytes = random(length);
    CHECK(encoded(bytes) == reference::hexEncoded(bytes));
    CHECK(encoded(bytes, hex::scalar::encode) == encoded(bytes));
    CHECK(decoded(encoded(bytes)) == bytes);
    const std::string digits = random.of("0123456789abcdefABCDEF0123456789abcdefg/:@`G \xFF\x81", length);
    CHECK(decoded(digits) == reference::hexDecoded(digits));
    CHECK(decoded(digits, hex::scalar::decode) == decoded(digits));
  }
}

TEST_CASE("hex: alignment makes no difference") {
  RandomBytes random(kSeed);
  const std::string bytes = random(75);
  const std::string digits = encoded(bytes);
  for (std::size_t offset = 0; offset < std::size_t{32} * 32; ++offset) {
    CAPTURE(offset);
    CHECK(encoded(bytes, hex::encode, offset) == digits);
    CHECK(decoded(digits, hex::decode, offset) == bytes);
  }
}

}  // namespace

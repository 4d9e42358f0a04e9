/// The hex codec.
#include "codecs/hex.h"

#include "memory/limits.h"
#include "tests/reference/hex.h"
#include "tests/support/kernels.h"

using namespace std::string_view_literals;

namespace {

using Kernel = void (*)(ByteView, ByteSpan) noexcept;

std::string encoded(std::string_view bytes, Kernel kernel = hex::encode, std::size_t offset = 0) {
  return written(kernel, bytes, static_cast<std::size_t>(hex::encodedSize(std::ssize(bytes))), offset);
}

std::string decoded(std::string_view digits, Kernel kernel = hex::decode, std::size_t offset = 0) {
  return written(kernel, digits, static_cast<std::size_t>(hex::decodedSize(std::ssize(digits))), offset);
}

constexpr Example kDecoding[] = {
    {"both letter cases", "4a4B", "JK"},
    {"an unpaired last character is ignored", "ABC", "\xAB"},
    {"a single character is no pair", "A", ""},
    {"a character that is no digit counts as 0", "zz41", "\0A"sv},
    {"blanks are not skipped", "0A 0B", "\x0A\0"sv},
    {"a prefix is not skipped", "0x41", "\0A"sv},
};

void agreesWithTwin(Kernel encode, Kernel decode) {
  RandomBytes random(0x48);
  std::string pairs;
  for (unsigned pair = 0; pair < 0x10000; ++pair) pairs += {static_cast<char>(pair >> 8), static_cast<char>(pair)};
  CHECK(decoded(pairs, decode) == reference::hexDecoded(pairs));
  for (std::size_t length = 0; length <= 200; ++length) {
    CAPTURE(length);
    const std::string bytes = random(length);
    const std::string digits = reference::hexEncoded(bytes);
    CHECK(encoded(bytes, encode, random.below(1024)) == digits);
    CHECK(decoded(digits, decode, random.below(1024)) == bytes);
    const std::string characters = random.of("0123456789abcdefABCDEF/:@`G \xFF\x81", length);
    CHECK(decoded(characters, decode, random.below(1024)) == reference::hexDecoded(characters));
  }
}

}  // namespace

TEST_CASE("hex decoding: examples") {
  checkExamples(
      kDecoding, [](std::string_view digits) { return decoded(digits); }, reference::hexDecoded);
}

TEST_CASE("hex: the longest input whose digits can be had") {
  CHECK(hex::encodedSize(0x3FFF'FFFF) <= kMaxSize);
  CHECK(hex::encodedSize(0x4000'0000) > kMaxSize);
}

TEST_CASE("hex: every form agrees with the naive twins") {
  IN_EVERY_FORM(hex, agreesWithTwin(form::encode, form::decode));
#ifdef WIDE_AVX512
  if (cpu::hasAvx512()) agreesWithTwin(hex::avx512::encode, hex::avx512::decode);
#endif
}

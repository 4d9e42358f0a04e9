/// Byte ranges.
#include "analysis/character_classes.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <string>
#include <string_view>

#include "tests/support/placed_bytes.h"
#include "tests/support/random_bytes.h"

namespace {

constexpr std::uint32_t kSeed = 0x434C'5353;

bool isPrintable(char c) { return c >= 0x20 && static_cast<unsigned char>(c) < 0x80; }
bool isFromSpaceOn(char c) { return static_cast<unsigned char>(c) >= 0x20; }

struct Range {
  const char* name;
  bool (*contains)(char);
  bool (*kernels[3])(ByteView) noexcept;
};

constexpr Range kRanges[] = {
    {"printable",
     isPrintable,
     {character_classes::arePrintable, character_classes::scalar::arePrintable,
#ifdef WIDE_AVX2
      character_classes::avx2::arePrintable
#endif
     }},
    {"from space on",
     isFromSpaceOn,
     {character_classes::areFromSpaceOn, character_classes::scalar::areFromSpaceOn,
#ifdef WIDE_AVX2
      character_classes::avx2::areFromSpaceOn
#endif
     }},
};

void checkRanges(const std::string& bytes) {
  const PlacedBytes in(bytes, bytes.size() % 33);
  for (const Range& range : kRanges) {
    CAPTURE(range.name);
    const bool expected = std::all_of(bytes.begin(), bytes.end(), range.contains);
    CHECK(range.kernels[0](in.span()) == expected);
    CHECK(range.kernels[1](in.span()) == expected);
#ifdef WIDE_AVX2
    if (bytes.size() >= character_classes::avx2::kMinSize && cpu::hasAvx2()) {
      CHECK(range.kernels[2](in.span()) == expected);
    }
#endif
  }
}

TEST_CASE("byte ranges: every byte, at any place of texts of every length") {
  RandomBytes random(kSeed);
  for (std::size_t length = 0; length <= 300; ++length) {
    CAPTURE(length);
    std::string bytes = random.of("plain text", length);
    checkRanges(bytes);
    if (length == 0) continue;
    for (const int byte : {0x00, 0x09, 0x1F, 0x20, 0x7F, 0x80, 0x9F, 0xA0, 0xFF}) {
      const std::size_t place = random.below(length);
      const char before = bytes[place];
      bytes[place] = static_cast<char>(byte);
      checkRanges(bytes);
      bytes[place] = before;
    }
  }
  for (int byte = 0; byte < 256; ++byte) {
    CAPTURE(byte);
    checkRanges(std::string(1, static_cast<char>(byte)));
    checkRanges(std::string(40, static_cast<char>(byte)));
  }
}

constexpr std::uint8_t kReplacements[] = {0x2E, 0x20, 0x00, 0x80, 0xFF};

using Replace = void (*)(ByteView, std::uint8_t, ByteSpan) noexcept;

std::string replaced(Replace kernel, std::string_view bytes, std::uint8_t replacement) {
  const PlacedBytes in(bytes, bytes.size() % 33);
  const PlacedBytes out(bytes.size(), bytes.size() % 31);
  kernel(in.span(), replacement, out.span());
  CHECK(out.marginsIntact());
  return out.text();
}

TEST_CASE("replacement: every length, with replacements that are printable and that aren't") {
  RandomBytes random(kSeed);
  for (std::size_t length = 0; length <= 300; ++length) {
    CAPTURE(length);
    const std::string bytes = random(length);
    for (const std::uint8_t replacement : kReplacements) {
      std::string expected = bytes;
      for (char& c : expected) c = isPrintable(c) ? c : static_cast<char>(replacement);
      CHECK((replaced(character_classes::replaceNonPrintable, bytes, replacement) == expected));
      CHECK((replaced(character_classes::scalar::replaceNonPrintable, bytes, replacement) == expected));
#ifdef WIDE_AVX2
      if (length < character_classes::avx2::kMinSize || !cpu::hasAvx2()) continue;
      CHECK((replaced(character_classes::avx2::replaceNonPrintable, bytes, replacement) == expected));
#endif
    }
  }
}

}  // namespace

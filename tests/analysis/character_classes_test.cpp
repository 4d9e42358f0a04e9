/// Byte ranges.
#include "analysis/character_classes.h"

#include <algorithm>

#include "tests/support/kernels.h"

namespace {

constexpr std::uint32_t kSeed = 0x434C'5353;

bool isPrintable(char c) { return c >= 0x20 && static_cast<unsigned char>(c) < 0x80; }
bool isFromSpaceOn(char c) { return static_cast<unsigned char>(c) >= 0x20; }

using Test = bool (*)(ByteView) noexcept;

/// Checks one form of both tests.
void checkRanges(const std::string& bytes, Test arePrintable, Test areFromSpaceOn) {
  const PlacedBytes in(bytes, bytes.size() % 33);
  CHECK(arePrintable(in.span()) == std::all_of(bytes.begin(), bytes.end(), isPrintable));
  CHECK(areFromSpaceOn(in.span()) == std::all_of(bytes.begin(), bytes.end(), isFromSpaceOn));
}

void checkRanges(const std::string& bytes) {
  checkRanges(bytes, character_classes::arePrintable, character_classes::areFromSpaceOn);
  IN_FORM(character_classes, scalar, checkRanges(bytes, form::arePrintable, form::areFromSpaceOn));
  IN_WIDE_FORM(character_classes, {
    if (bytes.size() >= form::kMinSize) checkRanges(bytes, form::arePrintable, form::areFromSpaceOn);
  });
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
  return written([&](ByteView in, ByteSpan out) { kernel(in, replacement, out); }, bytes, bytes.size(), bytes.size());
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
      IN_FORM(character_classes, scalar, CHECK((replaced(form::replaceNonPrintable, bytes, replacement) == expected)));
      IN_WIDE_FORM(character_classes, {
        if (length >= form::kMinSize) CHECK((replaced(form::replaceNonPrintable, bytes, replacement) == expected));
      });
    }
  }
}

}  // namespace

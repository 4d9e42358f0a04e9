#include "host/utf.h"

#include <doctest/doctest.h>
#include <string>
#include <vector>

namespace {

/// Runs a transcoder into room of exactly the size it asks for.
std::u16string toUtf16(std::u32string_view codePoints) {
  std::vector<char16_t> units(static_cast<std::size_t>(utf::utf16Bound(std::ssize(codePoints))) / sizeof(char16_t));
  const std::size_t length = utf::toUtf16(codePoints, units);
  CHECK(units[length] == 0);
  return {units.data(), length};
}

std::u32string toUtf32(std::u16string_view units) {
  std::vector<char32_t> codePoints(static_cast<std::size_t>(utf::utf32Bound(std::ssize(units))) / sizeof(char32_t));
  const std::size_t length = utf::toUtf32(units, codePoints);
  CHECK(codePoints[length] == 0);
  return {codePoints.data(), length};
}

std::u32string u32(std::initializer_list<std::uint32_t> units) { return {units.begin(), units.end()}; }
std::u16string u16(std::initializer_list<std::uint16_t> units) { return {units.begin(), units.end()}; }

}  // namespace

TEST_CASE("UTF-32 to UTF-16") {
  CHECK(toUtf16(U"").empty());
  CHECK(toUtf16(U"Aé€") == u"Aé€");
  CHECK(toUtf16(u32({0x1F600, 0x10FFFF})) == u16({0xD83D, 0xDE00, 0xDBFF, 0xDFFF}));
  CHECK(toUtf16(u32({0x41, 0xD800, 0xDFFF, 0x42})) == u"AB");            // surrogates vanish
  CHECK(toUtf16(u32({0x110000, 0xFFFFFFFF})) == u16({0xFFFD, 0xFFFD}));  // beyond Unicode
  CHECK(toUtf16(u32({0xD7FF, 0xE000, 0xFFFF})) == u16({0xD7FF, 0xE000, 0xFFFF}));
}

TEST_CASE("UTF-16 to UTF-32") {
  CHECK(toUtf32(u"").empty());
  CHECK(toUtf32(u"Aé€") == U"Aé€");
  CHECK(toUtf32(u16({0xD83D, 0xDE00})) == U"\U0001F600");
  CHECK(toUtf32(u16({0xD800, 0x41, 0x42})) == U"B");               // unpaired: dropped with its successor
  CHECK(toUtf32(u16({0xDC00, 0xDC00, 0x42})) == U"B");             // a low one as well
  CHECK(toUtf32(u16({0xD800, 0xD800, 0xDC00})) == u32({0xDC00}));  // the pair is taken apart
  CHECK(toUtf32(u16({0x41, 0xD800})) == u32({0x41, 0xD800}));      // the last unit stands for itself
}

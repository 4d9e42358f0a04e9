#include "stringkernels/utf8.h"

#include <cstddef>
#include <cstdint>

namespace stringkernels {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// What may follow a first byte: how many bytes, and from where to where the first of them.
struct Sequence {
  std::size_t more;
  unsigned char least;
  unsigned char most;
};

/// The table of well-formed sequences; none follows a byte that begins none.
constexpr Sequence sequenceOf(unsigned char first) noexcept {
  if (first >= 0xC2 && first <= 0xDF) return {1, 0x80, 0xBF};
  if (first >= 0xE0 && first <= 0xEF) {
    return {2, static_cast<unsigned char>(first == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(first == 0xED ? 0x9F : 0xBF)};
  }
  if (first >= 0xF0 && first <= 0xF4) {
    return {3, static_cast<unsigned char>(first == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(first == 0xF4 ? 0x8F : 0xBF)};
  }
  return {0, 0, 0};
}

/// Calls `take` with one code point after the other.
template <typename Take>
void decode(std::string_view utf8, Take take) {
  std::size_t at = 0;
  while (at < utf8.size()) {
    const auto first = static_cast<unsigned char>(utf8[at++]);
    if (first < 0x80) {
      take(char32_t{first});
      continue;
    }
    Sequence left = sequenceOf(first);
    char32_t codePoint = first & (0x3FU >> left.more);
    bool isWhole = left.more > 0;
    while (left.more > 0 && isWhole) {
      const auto next = at < utf8.size() ? static_cast<unsigned char>(utf8[at]) : std::uint8_t{0};
      isWhole = next >= left.least && next <= left.most;
      if (isWhole) {
        codePoint = codePoint << 6 | (next & 0x3FU);
        left = {left.more - 1, 0x80, 0xBF};
        ++at;
      }
    }
    take(isWhole ? codePoint : kReplacement);
  }
}

}  // namespace

std::u32string toUtf32(std::string_view utf8) {
  std::u32string codePoints;
  codePoints.reserve(utf8.size());
  decode(utf8, [&](char32_t codePoint) { codePoints.push_back(codePoint); });
  return codePoints;
}

std::u16string toUtf16(std::string_view utf8) {
  std::u16string units;
  units.reserve(utf8.size());
  decode(utf8, [&](char32_t codePoint) {
    if (codePoint >= 0x10000) {
      units.push_back(static_cast<char16_t>(0xD7C0 + (codePoint >> 10)));
      codePoint = 0xDC00 + (codePoint & 0x3FF);
    }
    units.push_back(static_cast<char16_t>(codePoint));
  });
  return units;
}

std::string toUtf8(Utf32View codePoints) {
  std::string utf8;
  utf8.reserve(codePoints.size());
  for (char32_t codePoint : codePoints) {
    if ((codePoint >= 0xD800 && codePoint < 0xE000) || codePoint > 0x10FFFF) codePoint = kReplacement;
    const int more = codePoint < 0x80 ? 0 : codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
    constexpr unsigned kFirst[] = {0x00, 0xC0, 0xE0, 0xF0};
    utf8.push_back(static_cast<char>(kFirst[more] | codePoint >> 6 * more));
    for (int shift = 6 * (more - 1); shift >= 0; shift -= 6) {
      utf8.push_back(static_cast<char>(0x80U | (codePoint >> shift & 0x3FU)));
    }
  }
  return utf8;
}

}  // namespace stringkernels

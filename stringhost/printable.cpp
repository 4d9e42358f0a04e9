#include "stringhost/printable.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "standin/transcode.h"

namespace stringhost {
namespace {

/// What is never shown as it is, in pairs of first and last.
constexpr struct {
  char32_t first;
  char32_t last;
} kUnshown[] = {
    {0x00, 0x1F},        // C0
    {0x7F, 0x9F},        // DEL and C1
    {0xAD, 0xAD},        // soft hyphen
    {0x061C, 0x061C},    // Arabic letter mark
    {0x180E, 0x180E},    // Mongolian vowel separator
    {0x200B, 0x200B},    // zero-width space
    {0x200E, 0x200F},    // left-to-right and right-to-left marks
    {0x2028, 0x202E},    // line and paragraph separators, embeddings and overrides
    {0x2060, 0x206F},    // word joiner, invisible operators, isolates
    {0xFEFF, 0xFEFF},    // byte-order mark
    {0xFFF9, 0xFFFB},    // annotations
    {0xFFFE, 0xFFFF},    // the byte-order mark turned about, and no character
    {0xE0000, 0xE007F},  // tags
};

bool isShown(char32_t character) {
  return std::none_of(std::begin(kUnshown), std::end(kUnshown),
                      [=](const auto& range) { return character >= range.first && character <= range.last; });
}

std::vector<char32_t> codePointsOf(std::string_view utf8) {
  const std::string wide = *standin::transcode(utf8, kEncodingUTF8, kEncodingUTF32);
  std::vector<char32_t> codePoints(wide.size() / sizeof(char32_t));
  std::memcpy(codePoints.data(), wide.data(), wide.size());
  return codePoints;
}

void appendEscape(std::string& out, std::uint32_t unit) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  out += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[unit >> shift & 0x0F];
}

}  // namespace

bool isPrintable(std::string_view utf8) {
  const std::vector<char32_t> text = codePointsOf(utf8);
  for (std::size_t at = 0; at < text.size(); ++at) {
    // A carriage return alone would let what follows hide what is before it.
    const bool isLineEnd = text[at] == '\n' || (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n');
    if (!isLineEnd && text[at] != '\t' && !isShown(text[at])) return false;
  }
  return true;
}

std::string visible(std::string_view utf8) {
  std::string out;
  for (const char32_t character : codePointsOf(utf8)) {
    if (isShown(character)) {
      out += *standin::transcode({reinterpret_cast<const char*>(&character), sizeof character}, kEncodingUTF32,
                                 kEncodingUTF8);
    } else if (character < 0x10000) {
      appendEscape(out, character);
    } else {
      appendEscape(out, 0xD800 + ((character - 0x10000) >> 10));
      appendEscape(out, 0xDC00 + (character & 0x3FF));
    }
  }
  return out;
}

}  // namespace stringhost

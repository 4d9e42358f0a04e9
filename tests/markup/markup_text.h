/// Random text for the markup kernels.
#pragma once

#include "markup/entity_columns.h"
#include "tests/support/kernels.h"

namespace markup_text {

/// What a text is mostly made of.
enum class Mix { kPlain, kWords, kMarkup, kReferences, kForeign, kAnything };
inline constexpr Mix kMixes[] = {Mix::kPlain,      Mix::kWords,   Mix::kMarkup,
                                 Mix::kReferences, Mix::kForeign, Mix::kAnything};

inline std::u32string widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

/// A reference to an entity or number: whole, cut, misspelt, or run together with what follows.
inline std::u32string reference(RandomBytes& random) {
  constexpr std::u32string_view kNumbers[] = {
      U"&#65;",      U"&#x4a;",    U"&#X41;",   U"&#0;",    U"&#-65;",     U"&#6-5;",      U"&#;",
      U"&#x;",       U"&#65abc;",  U"&#65&lt;", U"&#xFFg;", U"&#1234567;", U"&#12345678;", U"&#xD800;",
      U"&#xFFFFFF;", U"&#38;amp;", U"&#x-1;",   U"&#9;",    U"&#",         U"&;",          U"&"};
  if (random.below(3) == 0) return std::u32string(kNumbers[random.below(std::size(kNumbers))]);
  std::u32string text = U"&" + widened(escapecodes[random.below(entities::kCount)].name) + U";";
  switch (random.below(8)) {
    case 0:
      return text.substr(0, 1 + random.below(text.size()));
    case 1:
      text[1 + random.below(text.size() - 1)] = U"&;#xX0aZ\0\x80\xFEFF"[random.below(11)];
      return text;
    case 2:
      return text.insert(text.size() - 1, 1, U"\0a;\xE9"[random.below(4)]);
    default:
      return text;
  }
}

inline char32_t foreign(RandomBytes& random) {
  constexpr char32_t kEdges[] = {
      0x7F,        0x80,      0x9F,       0xA0,        0xFF,        0x100,       0x3D6,       0x3D7,
      0x2001,      0x2002,    0x2666,     0x2667,      0x7FFF,      0x8000,      0xD800,      0xDFFF,
      0xFEFF,      0xFFFE,    0xFFFF,     0x10000,     0x10026,     0x1F600,     0x10FFFF,    0x110000,
      999'999,     1'000'000, 99'999'999, 100'000'000, 0x7FFF'FFFF, 0x8000'0000, 0x8000'0026, 0xFFFE'0000,
      0xFFFF'FFFF, 9'999,     10'000,     99'999,      100'000};
  switch (random.below(4)) {
    case 0:
      return kEdges[random.below(std::size(kEdges))];
    case 1:
      return escapecodes[random.below(entities::kCount)].code;
    case 2:
      return static_cast<char32_t>(0x80 + random.below(0x2700));
    default:
      return static_cast<char32_t>(0x4E00 + random.below(0x5000));
  }
}

/// Text of that length; the same for the same state of `random`.
inline std::u32string random(RandomBytes& random, Mix mix, std::size_t length) {
  constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz 0123456789 ABCDEFGH ,.;#-\t\r\n\x7F";
  std::u32string text;
  while (text.size() < length) {
    const std::size_t dice = random.below(100);
    if (dice < 2 && mix != Mix::kPlain) text += static_cast<char32_t>(random.below(0x20));
    if (mix == Mix::kAnything && dice < 30) text += reference(random);
    if (mix == Mix::kReferences && dice < 60) text += reference(random);
    if (mix == Mix::kMarkup || (mix == Mix::kAnything && dice < 30)) text += U"\"&'<>&;#x"[random.below(9)];
    if (mix == Mix::kForeign || (mix == Mix::kAnything && dice < 60)) text += foreign(random);
    const std::size_t letters = random.below(mix == Mix::kPlain || mix == Mix::kWords ? 40 : 3);
    text += widened(random.of(kLetters, letters));
  }
  text.resize(length);
  return text;
}

}  // namespace markup_text

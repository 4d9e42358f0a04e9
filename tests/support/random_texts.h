/// Seeded random texts of code points.
#pragma once

#include <iterator>
#include <string>
#include <string_view>

#include "tests/support/random_bytes.h"

/// Few and many characters, below and above 256, and beyond U+FFFF.
inline constexpr std::u32string_view kAlphabets[] = {
    U"ab",
    U"abcdefghijklmnopqrstuvwxyz ",
    U"aéÿĀ中\U0001F600\U0001F601\U0010FFFF",
};

class RandomTexts : public RandomBytes {
 public:
  using RandomBytes::RandomBytes;

  /// Code points that each are one of `alphabet`.
  [[nodiscard]] std::u32string of(std::u32string_view alphabet, std::size_t length) {
    std::u32string text(length, U'\0');
    for (char32_t& codePoint : text) codePoint = alphabet[below(alphabet.size())];
    return text;
  }

  /// Code points of a range, each as likely.
  [[nodiscard]] std::u32string between(char32_t first, char32_t last, std::size_t length) {
    std::u32string text(length, U'\0');
    for (char32_t& codePoint : text) codePoint = first + static_cast<char32_t>(below(last - first + 1));
    return text;
  }

  /// A text with some swaps, deletions, insertions and substitutions.
  [[nodiscard]] std::u32string edited(std::u32string text, std::u32string_view alphabet, std::size_t edits) {
    for (; edits > 0 && text.size() > 1; --edits) {
      const std::size_t place = below(text.size() - 1);
      const std::size_t kind = below(4);
      if (kind == 0) std::swap(text[place], text[place + 1]);
      if (kind == 1) text.erase(place, 1);
      if (kind == 2) text.insert(place, 1, of(alphabet, 1)[0]);
      if (kind == 3) text[place] = of(alphabet, 1)[0];
    }
    return text;
  }
};

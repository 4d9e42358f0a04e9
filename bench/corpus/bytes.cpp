/// Bytes without much order.
#include "bench/corpus/texts.h"

std::string corpus::letters(std::size_t size, Random& random) {
  return grown(size, random,
               [](std::string& text, Random& chance) { text += static_cast<char>('a' + chance.below(26)); });
}

std::string corpus::bytes(std::size_t size, Random& random) {
  std::string text(size, '\0');
  for (char& byte : text) byte = static_cast<char>(random.next());
  return text;
}

std::string corpus::highBytes(std::size_t size, Random& random) {
  std::string text(size, '\0');
  for (char& byte : text) byte = static_cast<char>(0x80 | random.next());
  return text;
}

std::string corpus::upperLatin1(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    text += '\xC3';
    text += static_cast<char>(0x80 + chance.below(64));
  });
}

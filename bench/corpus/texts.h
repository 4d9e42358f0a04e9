/// Texts to time on: each a function of a size and a seeded source of chance. The result has exactly that many bytes
/// and never ends within a character.
#pragma once

#include <string>

#include "bench/corpus/random.h"

namespace corpus {

using Generator = std::string (*)(std::size_t size, Random& random);

/// Grows a text by pieces, then cuts it to the size at a character and fills up with full stops.
template <typename Piece>
std::string grown(std::size_t size, Random& random, Piece piece) {
  std::string text;
  while (text.size() < size) piece(text, random);
  std::size_t end = size;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  text.resize(end);
  text.append(size - end, '.');
  return text;
}

// Prose.
std::string english(std::size_t size, Random& random);
std::string plainEnglish(std::size_t size, Random& random);  ///< without apostrophes and quotation marks
std::string french(std::size_t size, Random& random);
std::string chinese(std::size_t size, Random& random);
std::string emoji(std::size_t size, Random& random);
std::string windowsFrench(std::size_t size, Random& random);  ///< in Windows-1252, and in ISO-8859-1 where that has it

// Markup.
std::string htmlPage(std::size_t size, Random& random);
std::string bareMarkup(std::size_t size, Random& random);  ///< markup characters only
std::string sparseReferences(std::size_t size, Random& random);
std::string denseReferences(std::size_t size, Random& random);

// What is sent and stored.
std::string query(std::size_t size, Random& random);
std::string encodedQuery(std::size_t size, Random& random);
std::string percentEncoded(std::size_t size, Random& random);
std::string mail(std::size_t size, Random& random);
std::string quotedPrintableMail(std::size_t size, Random& random);
std::string quotedPrintableBytes(std::size_t size, Random& random);
std::string yencData(std::size_t size, Random& random);
std::string mysqlText(std::size_t size, Random& random);
std::string mysqlBinary(std::size_t size, Random& random);
std::string sqlStatements(std::size_t size, Random& random);
std::string sqlBooleans(std::size_t size, Random& random);
std::string hexDigits(std::size_t size, Random& random);

// Bytes.
std::string letters(std::size_t size, Random& random);
std::string bytes(std::size_t size, Random& random);
std::string highBytes(std::size_t size, Random& random);
std::string upperLatin1(std::size_t size, Random& random);  ///< U+00C0 to U+00FF in UTF-8

/// One text repeated.
template <char... kCharacters>
std::string repeated(std::size_t size, Random& /*random*/) {
  constexpr char kText[] = {kCharacters...};
  std::string text(size, kText[0]);
  for (std::size_t i = 0; i < size; ++i) text[i] = kText[i % sizeof kText];
  return text;
}

}  // namespace corpus

#include "stringhost/shell_words.h"

namespace stringhost {

std::optional<std::vector<std::string>> shellWords(std::string_view line) {
  std::vector<std::string> words;
  std::string word;
  bool isInWord = false;
  char quote = 0;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const char c = line[at];
    const char next = at + 1 < line.size() ? line[at + 1] : '\0';
    const bool escapes = c == '\\' && next != '\0' &&
                         (quote == 0 || (quote == '"' && (next == '"' || next == '\\' || next == '$' || next == '`')));
    if (escapes) {
      word += next;
      isInWord = true;
      ++at;
    } else if (quote != 0) {
      if (c == quote) {
        quote = 0;
      } else {
        word += c;
      }
    } else if (c == '\'' || c == '"') {
      quote = c;
      isInWord = true;
    } else if (c == ' ' || c == '\t') {
      if (isInWord) words.push_back(std::move(word));
      word.clear();
      isInWord = false;
    } else {
      word += c;
      isInWord = true;
    }
  }
  if (quote != 0) return std::nullopt;
  if (isInWord) words.push_back(std::move(word));
  return words;
}

}  // namespace stringhost

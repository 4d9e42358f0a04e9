/// The rewriting of booleans, a byte at a time.
#pragma once

#include <cctype>
#include <string>
#include <string_view>

namespace reference {

inline bool isSqlDelimiter(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x21 || byte >= 0x80 || c == '(' || c == ')' || c == ',' || c == ';';
}

inline bool isSqlWord(std::string_view sql, std::size_t position, std::string_view word) {
  if (sql.size() - position < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(sql[position + i])) != word[i]) return false;
  }
  return position + word.size() == sql.size() || isSqlDelimiter(sql[position + word.size()]);
}

inline std::string booleansReplaced(std::string_view sql) {
  std::string result;
  bool single = false;
  bool twofold = false;
  std::size_t wordPosition = 0;
  for (std::size_t p = 0; p < sql.size(); ++p) {
    if (sql[p] == '\'' && !twofold) single = !single;
    if (sql[p] == '"' && !single) twofold = !twofold;
    wordPosition = isSqlDelimiter(sql[p]) ? 0 : wordPosition + 1;
    const bool mayBeKeyword = !single && !twofold && wordPosition == 1;
    if (mayBeKeyword && isSqlWord(sql, p, "FALSE")) {
      result += '0';
      p += 4;
    } else if (mayBeKeyword && isSqlWord(sql, p, "TRUE")) {
      result += '1';
      p += 3;
    } else {
      result += sql[p];
    }
  }
  return result;
}

}  // namespace reference

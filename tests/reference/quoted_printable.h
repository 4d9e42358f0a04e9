/// Quoted-printable, one byte at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tests/reference/hex.h"

namespace reference {

namespace detail {

inline bool isBreak(char c) { return c == '\r' || c == '\n'; }

/// Steps over a line break, of one byte or two.
inline void skipBreak(std::string_view text, std::size_t& i) {
  const char first = text[i++];
  if (i < text.size() && isBreak(text[i]) && text[i] != first) ++i;
}

/// One line after the other, each character on the line where it still fits.
struct LineWriter {
  std::int64_t limit;
  std::string text = {};
  std::int64_t column = 0;

  void write(std::string_view characters) {
    const auto length = static_cast<std::int64_t>(characters.size());
    if (column + length >= limit - 1) softBreak();
    text += characters;
    column += length;
  }
  void escape(char c) { write("=" + hexEncoded({&c, 1})); }
  void softBreak() {
    text += '=';
    lineBreak();
  }
  void lineBreak() {
    text += "\r\n";
    column = 0;
  }
};

}  // namespace detail

inline std::string quotedPrintableEncoded(std::string_view bytes, std::int32_t limit) {
  detail::LineWriter out{.limit = limit > 1 ? limit : 72};
  char held = '\0';
  bool hadBreak = false;
  for (std::size_t i = 0; i < bytes.size();) {
    const char c = bytes[i];
    if (detail::isBreak(c)) {
      if (held != '\0') out.escape(held);
      held = '\0';
      detail::skipBreak(bytes, i);
      out.lineBreak();
      hadBreak = true;
      continue;
    }
    if (held != '\0') out.write({&held, 1});
    held = '\0';
    if (c == ' ' || c == '\t') {
      held = c;
    } else if (c > ' ' && c < 0x7F && c != '=') {
      out.write({&c, 1});
    } else {
      out.escape(c);
    }
    ++i;
  }
  if (held != '\0') out.write({&held, 1});
  if (hadBreak && out.column > 0) out.softBreak();
  return out.text;
}

inline std::string quotedPrintableDecoded(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    const char c = text[i];
    if (detail::isBreak(c)) {
      detail::skipBreak(text, i);
      bytes += '\n';
    } else if (c != '=') {
      bytes += c;
      ++i;
    } else if (++i == text.size()) {
      break;
    } else if (detail::isBreak(text[i])) {
      detail::skipBreak(text, i);
    } else if (text[i] == ' ' || text[i] == '\t') {
      while (i < text.size() && !detail::isBreak(text[i])) ++i;
      if (i < text.size()) detail::skipBreak(text, i);
    } else {
      const std::string_view digits = text.substr(i, 2);
      if (digits.size() == 2 && isHexDigit(digits[0]) && isHexDigit(digits[1])) bytes += hexDecoded(digits);
      i += 2;
    }
  }
  return bytes;
}

}  // namespace reference

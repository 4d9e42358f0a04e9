/// The markup codecs character by character, with every lookup a walk through the entity table.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "markup/entity_tables.h"

namespace reference {

inline bool isMarkup(char32_t c) { return c == U'"' || c == U'&' || c == U'\'' || c == U'<' || c == U'>'; }

inline bool isDropped(char32_t c) { return c < 0x20 && c != U'\t' && c != U'\n' && c != U'\r'; }

inline const EscapeCode* entityOf(char32_t code) {
  const EscapeCode* record = escapecodes;
  while (record->code != 0 && record->code != code) ++record;
  return record->code != 0 ? record : nullptr;
}

inline char32_t characterNamed(std::u32string_view name) {
  for (const EscapeCode* record = escapecodes; record->code != 0; ++record) {
    const std::string_view candidate = record->name;
    if (std::equal(name.begin(), name.end(), candidate.begin(), candidate.end())) return record->code;
  }
  return 0;
}

inline bool needsXmlEncoding(std::u32string_view text) {
  text = text.substr(0, text.find(U'\0'));
  return std::any_of(text.begin(), text.end(), isMarkup);
}

inline bool needsHtmlEncoding(std::u32string_view text) {
  text = text.substr(0, text.find(U'\0'));
  return std::any_of(text.begin(), text.end(), [](char32_t c) { return isMarkup(c) || c > 0x7F; });
}

inline std::string htmlEncoded(std::u32string_view text, bool keepMarkup) {
  std::string html;
  for (const char32_t c : text) {
    const EscapeCode* const entity = entityOf(c);
    if (c == U'\'' && !keepMarkup) {
      html += "&#39;";
    } else if (entity != nullptr && !(keepMarkup && c < 0x80)) {
      html += std::string("&") + entity->name + ";";
    } else if (c >= 0x80) {
      html += "&#" + std::to_string(static_cast<std::int32_t>(c)) + ";";
    } else if (!isDropped(c)) {
      html += static_cast<char>(c);
    }
  }
  return html;
}

inline std::u32string xmlEncoded(std::u32string_view text, bool namedApostrophe) {
  std::u32string xml;
  for (const char32_t c : text) {
    if (c == U'\'') {
      xml += namedApostrophe ? U"&apos;" : U"&#39;";
    } else if (isMarkup(c)) {
      const std::string_view name = entityOf(c)->name;
      xml += U"&" + std::u32string(name.begin(), name.end()) + U";";
    } else if (!isDropped(c)) {
      xml += c;
    }
  }
  return xml;
}

/// The value of "#..." or "#x...", below 1 where it isn't one.
inline std::int64_t numberNamed(std::u32string_view name) {
  const bool hexadecimal = name.size() > 1 && name[1] == U'x';
  const std::u32string_view digits = hexadecimal ? U"0123456789ABCDEF" : U"0123456789";
  std::int64_t value = 0;
  bool negative = false;
  for (char32_t c : name.substr(hexadecimal ? 2 : 1)) {
    if (hexadecimal && c >= U'a' && c <= U'f') c -= 0x20;
    const std::size_t digit = digits.find(c);
    if (c != U'-' && digit == digits.npos) break;
    if (c == U'-') negative = true;
    if (c != U'-') value = value * static_cast<std::int64_t>(digits.size()) + static_cast<std::int64_t>(digit);
  }
  return negative ? -value : value;
}

inline std::u32string entitiesDecoded(std::u32string_view text) {
  std::u32string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::u32string_view behind = text.substr(i + 1);
    const std::size_t length = std::min(behind.find(U';'), behind.size());
    std::int64_t character = 0;
    if (text[i] == U'&' && length >= 1 && length <= 8) {
      const std::u32string_view name = behind.substr(0, length);
      character = characterNamed(name);
      if (character == 0 && name[0] == U'#') character = numberNamed(name);
    }
    decoded += character >= 1 ? static_cast<char32_t>(character) : text[i];
    if (character >= 1) i += length + 1;
  }
  return decoded;
}

inline bool isReady(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](unsigned char unit) { return unit != 0 && unit < 0x80 && !isMarkup(unit); });
}

inline std::string withoutTags(std::string_view text, std::string_view replacement = {}) {
  std::string kept;
  std::int64_t depth = 0;
  for (const char byte : text) {
    if (byte == '<') {
      ++depth;
    } else if (byte == '>') {
      --depth;
    } else if (byte != 0) {
      if (depth == 0) kept += byte;
      if (depth != 0) kept += replacement;
    }
  }
  return kept;
}

}  // namespace reference

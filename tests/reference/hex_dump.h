/// Hex dumps, a character at a time.
#pragma once

#include <string>
#include <string_view>

#include "tests/reference/hex.h"

namespace reference {

struct DumpLayout {
  std::size_t groupDigits;
  std::size_t lineGroups;
  std::string lineStart;
  std::string lineEnd;
  std::string spacer;
  std::string filler;
};

inline std::string hexDump(std::string_view bytes, const DumpLayout& layout) {
  std::string digits = hexEncoded(bytes);
  const std::string filler = layout.filler.empty() ? "0" : layout.filler;
  for (std::size_t r = 0; digits.size() % (layout.groupDigits * layout.lineGroups) != 0; ++r) {
    digits += filler[r % filler.size()];
  }
  std::string dump;
  std::size_t next = 0;
  while (next < digits.size()) {
    dump += layout.lineStart;
    for (std::size_t group = 0; group < layout.lineGroups; ++group, next += layout.groupDigits) {
      if (group > 0) dump += layout.spacer;
      dump += digits.substr(next, layout.groupDigits);
    }
    dump += layout.lineEnd;
  }
  return dump;
}

}  // namespace reference

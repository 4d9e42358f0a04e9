/// Counting by trying every place.
#pragma once

#include <cstdint>
#include <string_view>

namespace reference {

inline std::int64_t count(std::string_view text, std::string_view pattern) {
  std::int64_t count = 0;
  std::size_t i = 0;
  while (!pattern.empty() && i + pattern.size() <= text.size()) {
    const bool occurs = text.substr(i, pattern.size()) == pattern;
    count += occurs ? 1 : 0;
    i += occurs ? pattern.size() : 1;
  }
  return count;
}

}  // namespace reference

/// The order of byte strings, the shorter one continued by zero bytes.
#pragma once

#include <algorithm>
#include <string>

namespace reference {

inline int compared(std::string a, std::string b) {
  const std::size_t length = std::max(a.size(), b.size());
  a.resize(length);
  b.resize(length);
  const int order = a.compare(b);
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

}  // namespace reference

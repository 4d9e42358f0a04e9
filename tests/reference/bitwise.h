/// The bitwise operations byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "bytes/bitwise.h"

namespace reference {

inline std::string combined(bitwise::Operation operation, std::string_view data, std::string_view mask,
                            std::int64_t offset) {
  const auto length = static_cast<std::int64_t>(mask.size());
  std::string result;
  for (std::int64_t i = 0; i < static_cast<std::int64_t>(data.size()); ++i) {
    const std::int64_t k = ((offset + i) % length + length) % length;
    const int a = data[static_cast<std::size_t>(i)];
    const int b = mask[static_cast<std::size_t>(k)];
    int byte = a ^ b;
    if (operation == bitwise::Operation::kAnd) byte = a & b;
    if (operation == bitwise::Operation::kOr) byte = a | b;
    if (operation == bitwise::Operation::kXorPosition) byte ^= static_cast<int>(i);
    result += static_cast<char>(byte & 0xFF);
  }
  return result;
}

}  // namespace reference

/// The arguments of one call, before any host has them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/encodings.h"

struct Text {
  std::string bytes;
  TextEncoding encoding = kEncodingUTF8;
};

/// String, integer and number arguments in the order they are declared among their own type.
struct Input {
  std::vector<Text> texts;
  std::vector<std::int32_t> integers;
  std::vector<double> numbers;

  [[nodiscard]] std::size_t byteCount() const noexcept {
    std::size_t count = 0;
    for (const Text& text : texts) count += text.bytes.size();
    return count;
  }
};

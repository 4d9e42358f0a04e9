/// Seeded random input: the same on every run and platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

class RandomBytes {
 public:
  explicit RandomBytes(std::uint32_t seed) : engine_(seed) {}

  /// A number from 0 to `limit` - 1.
  [[nodiscard]] std::size_t below(std::size_t limit) { return engine_() % limit; }

  /// Bytes of any value.
  [[nodiscard]] std::string operator()(std::size_t length) {
    std::string bytes(length, '\0');
    for (char& byte : bytes) byte = static_cast<char>(engine_() >> 24);
    return bytes;
  }

  /// Bytes that each are one of `choices`; a value given more often comes up more often.
  [[nodiscard]] std::string of(std::string_view choices, std::size_t length) {
    std::string bytes(length, '\0');
    for (char& byte : bytes) byte = choices[below(choices.size())];
    return bytes;
  }

 private:
  std::mt19937 engine_;
};

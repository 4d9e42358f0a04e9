/// Strings as kernels see them, and what kernels write as strings.
#pragma once

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

#include "memory/byte_view.h"
#include "memory/limits.h"
#include "memory/output_buffer.h"

namespace stringkernels {

[[noreturn]] inline void refuseLength() { throw std::length_error("stringkernels: more than 2147483647 bytes"); }

/// @throw std::length_error  for more than 2^31 - 1 bytes
[[nodiscard]] inline ByteView bytesOf(std::string_view text) {
  if (text.size() > static_cast<std::size_t>(kMaxSize)) refuseLength();
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

[[nodiscard]] inline std::string stringOf(ByteView bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// What a kernel writes whose size has a bound.
/// @param write  (ByteSpan) -> the number of bytes written
/// @throw std::length_error  where the bound is above 2^31 - 1
template <typename Write>
[[nodiscard]] std::string written(std::int64_t bound, Write write) {
  if (bound > kMaxSize) refuseLength();
  std::string text(static_cast<std::size_t>(bound), '\0');
  text.resize(write(ByteSpan(reinterpret_cast<std::uint8_t*>(text.data()), text.size())));
  return text;
}

/// Throws for what a kernel with a growing output could not write.
inline void check(bool isComplete, const OutputBuffer& output) {
  if (isComplete) return;
  if (output.tooLong()) refuseLength();
  throw std::bad_alloc();
}

}  // namespace stringkernels

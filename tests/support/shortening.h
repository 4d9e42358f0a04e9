/// Running kernels whose output is never longer than their input.
#pragma once

#include <doctest/doctest.h>
#include <string>
#include <string_view>

#include "tests/support/placed_bytes.h"

using ShorteningKernel = std::size_t (*)(ByteView, ByteSpan) noexcept;

/// What a kernel makes of an input of exactly this length, at an alignment. It may write as many bytes as it reads,
/// and `room` more.
inline std::string shortened(ShorteningKernel kernel, std::string_view input, std::size_t offset = 0,
                             std::size_t room = 0) {
  const std::string output = written(kernel, input, input.size() + room, offset);
  REQUIRE(output.size() <= input.size());
  return output;
}

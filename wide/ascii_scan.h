/// The search for bytes outside 7-bit ASCII.
#pragma once

#include "memory/byte_view.h"
#include "wide/byte_word.h"
#include "wide/cpu.h"

namespace ascii {

/// The position of the first byte of 0x80 or above, or the number of bytes when there is none.
[[nodiscard]] std::size_t findNonAscii(ByteView bytes) noexcept;

/// `isAscii` for at most 32 bytes.
[[nodiscard]] inline bool isBriefAscii(ByteView bytes) noexcept {
  using byte_word::load;
  const std::uint8_t* const begin = bytes.data();
  const std::size_t size = bytes.size();
  std::uint64_t all = 0;
  if (size >= 16) {  // all of it, some perhaps twice
    all = load(begin) | load(begin + 8) | load(begin + size - 16) | load(begin + size - 8);
  } else if (size >= 8) {
    all = load(begin) | load(begin + size - 8);
  } else {
    for (const std::uint8_t byte : bytes) all |= byte;
  }
  return (all & byte_word::kHighBits) == 0;
}

/// True when every byte is below 0x80; also for no bytes.
[[nodiscard]] inline bool isAscii(ByteView bytes) noexcept {
  return bytes.size() <= 32 ? isBriefAscii(bytes) : findNonAscii(bytes) == bytes.size();
}

namespace scalar {
[[nodiscard]] std::size_t findNonAscii(ByteView bytes) noexcept;
}

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] std::size_t findNonAscii(ByteView bytes) noexcept;
}
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] std::size_t findNonAscii(ByteView bytes) noexcept;
}
#endif

}  // namespace ascii

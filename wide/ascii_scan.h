/// The search for bytes outside 7-bit ASCII.
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace ascii {

/// The position of the first byte of 0x80 or above, or the number of bytes when there is none.
[[nodiscard]] std::size_t findNonAscii(ByteView bytes) noexcept;

/// True when every byte is below 0x80; also for no bytes.
[[nodiscard]] inline bool isAscii(ByteView bytes) noexcept { return findNonAscii(bytes) == bytes.size(); }

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

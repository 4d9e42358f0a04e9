/// yEnc data: each byte is stored 42 higher; where that gives a byte that must not occur, "=" stands in front of it
/// and it is stored 64 higher still (the yEnc draft of 2002).
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace yenc {

inline constexpr std::uint8_t kShift = 42;
inline constexpr std::uint8_t kEscape = '=';
inline constexpr std::uint8_t kEscapedShift = 64;

/// Decodes the data between the header and trailer lines. Every byte but "=" yields one byte, CR and LF included;
/// "=" makes one of the byte after it, which may be another "=". A final "=" is read as if a zero byte followed.
/// @param bytes  at least as long as the data
/// @return       how many bytes were written
[[nodiscard]] std::size_t decode(ByteView data, ByteSpan bytes) noexcept;

namespace scalar {
[[nodiscard]] std::size_t decode(ByteView data, ByteSpan bytes) noexcept;
}

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] std::size_t decode(ByteView data, ByteSpan bytes) noexcept;
}
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] std::size_t decode(ByteView data, ByteSpan bytes) noexcept;
}
#endif

#ifdef WIDE_AVX512
namespace avx512 {
[[nodiscard]] std::size_t decode(ByteView data, ByteSpan bytes) noexcept;
}
#endif

}  // namespace yenc

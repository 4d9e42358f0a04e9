/// The backslash escapes of MySQL's string literals, undone on bytes.
#pragma once

#include <cstdint>

#include "memory/byte_view.h"
#include "memory/limits.h"
#include "wide/cpu.h"

namespace mysql {

/// What a backslash and this byte stand for, or a negative number when the pair is no escape. Case-sensitive.
[[nodiscard]] constexpr int unescaped(std::uint8_t byte) noexcept {
  switch (byte) {
    case '0':
      return 0x00;
    case 'b':
      return '\b';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    case 'Z':
      return 0x1A;
    case '\'':
    case '"':
    case '\\':
    case '%':
    case '_':
      return byte;
    default:
      return -1;
  }
}

/// Room for decoding; as many bytes as the text has would do.
[[nodiscard]] constexpr std::int64_t decodedBound(std::int64_t textSize) noexcept { return withOverrun(textSize); }

/// Writes the bytes with their escapes undone. A backslash and the byte behind it are taken together; a pair that is
/// no escape stays as it is, and so does a backslash at the very end.
/// @param bytes  at least as long as `text`, which it may not overlap
/// @return the number of bytes written
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;

namespace scalar {
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;
}

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;
}
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;
}
#endif

}  // namespace mysql

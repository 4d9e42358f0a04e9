/// Byte-order marks, the signatures that may open Unicode text (The Unicode Standard, section 23.8).
#pragma once

#include "memory/byte_view.h"

namespace unicode_markers {

/// The kinds of marks, as callers number them.
enum Kind : std::int32_t {
  kNone = 0,
  kUTF8 = 1,
  kUTF16 = 2,  ///< the byte order isn't stated: little-endian
  kUTF16BigEndian = 3,
  kUTF16LittleEndian = 4,
  kUTF32 = 5,  ///< the byte order isn't stated: little-endian
  kUTF32BigEndian = 6,
  kUTF32LittleEndian = 7,
};

/// Tells the mark that bytes begin with, always one of stated byte order. FF FE 00 00 is that of UTF-32, not that of
/// UTF-16 before a zero character.
[[nodiscard]] Kind detect(ByteView bytes) noexcept;

/// The bytes of a mark, aligned for its units; none for a number that isn't the kind of one.
[[nodiscard]] ByteView mark(std::int32_t kind) noexcept;

}  // namespace unicode_markers

/// Order of byte strings, with the shorter one continued by zero bytes.
#pragma once

#include "memory/byte_view.h"

namespace comparison {

/// Compares as unsigned bytes, position by position; beyond its end the shorter string counts as zero bytes. So a
/// string sorts before what it is a prefix of, and equals itself followed by zero bytes.
/// @return -1, 0 or 1
[[nodiscard]] int compareZeroExtended(ByteView a, ByteView b) noexcept;

}  // namespace comparison

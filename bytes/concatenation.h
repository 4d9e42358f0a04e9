/// Joining byte strings.
#pragma once

#include "memory/byte_view.h"

namespace concatenation {

/// The number of bytes of all parts together.
[[nodiscard]] std::int64_t joinedSize(std::span<const ByteView> parts) noexcept;

/// Writes the parts one after the other with nothing between them.
/// @param joined  exactly `joinedSize` long
void join(std::span<const ByteView> parts, ByteSpan joined) noexcept;

}  // namespace concatenation

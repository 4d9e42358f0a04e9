/// Hex dumps: digits in groups, groups in framed lines.
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace hex_dump {

/// How a dump is laid out. Every line has the same length: the last one is completed with fill.
struct Layout {
  std::int64_t groupDigits;  ///< digits in a group, at least 1; an odd number splits bytes
  std::int64_t lineGroups;   ///< groups in a line, at least 1
  ByteView lineStart;        ///< before every line
  ByteView lineEnd;          ///< after every line
  ByteView spacer;           ///< between two groups of a line
  ByteView filler;           ///< repeated in place of missing digits; empty stands for "0"

  [[nodiscard]] std::int64_t lineDigits() const noexcept { return groupDigits * lineGroups; }
};

/// The number of digits shown, fill included. Group and line sizes below 2^31 cannot make it overflow.
[[nodiscard]] std::int64_t digitCount(std::int64_t byteCount, const Layout& layout) noexcept;

/// The size of one line in bytes; 2^63 - 1 when it is larger still.
[[nodiscard]] std::int64_t lineSize(const Layout& layout) noexcept;

/// The size of the dump in bytes; 2^63 - 1 when it is larger still.
[[nodiscard]] std::int64_t size(std::int64_t byteCount, const Layout& layout) noexcept;

/// Writes the dump, in upper-case digits.
/// @param text  exactly `size` long; may not overlap anything shown in it
void write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept;

namespace scalar {
void write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept;
}

#ifdef WIDE_AVX2
namespace avx2 {
void write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept;
}
#endif
#ifdef WIDE_NEON
namespace neon {
void write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept;
}
#endif

}  // namespace hex_dump

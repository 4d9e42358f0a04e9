/// Byte ranges: tests for text that keeps to one, and the replacement of what is beyond.
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace character_classes {

enum class ByteClass {
  kSevenBit,     ///< 0x00 to 0x7F
  kPrintable,    ///< 0x20 to 0x7F: the delete character counts
  kFromSpaceOn,  ///< 0x20 to 0xFF
};

/// True when every byte is of the class; also for no bytes. Stops at the first that isn't.
[[nodiscard]] bool consistsOf(ByteClass byteClass, ByteView bytes) noexcept;

/// Copies the bytes, with the replacement in place of those that aren't printable.
/// @param out  as long as `bytes`; may not overlap it
void replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept;

namespace scalar {
[[nodiscard]] bool consistsOf(ByteClass byteClass, ByteView bytes) noexcept;
void replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
/// For at least 32 bytes.
namespace avx2 {
[[nodiscard]] bool consistsOf(ByteClass byteClass, ByteView bytes) noexcept;
void replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept;
}  // namespace avx2
#endif

}  // namespace character_classes

/// Byte ranges: tests for bytes that keep to one, and the replacement of those that don't. The range of 7-bit ASCII
/// is tested in wide/ascii_scan.h.
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace character_classes {

/// True when every byte is from 0x20 to 0x7F, the delete character included; also for no bytes.
[[nodiscard]] bool arePrintable(ByteView bytes) noexcept;

/// True when no byte is below 0x20.
[[nodiscard]] bool areFromSpaceOn(ByteView bytes) noexcept;

/// Copies bytes, with the replacement in place of those that aren't printable.
/// @param out  as long as `bytes`; may not overlap it
void replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept;

namespace scalar {
[[nodiscard]] bool arePrintable(ByteView bytes) noexcept;
[[nodiscard]] bool areFromSpaceOn(ByteView bytes) noexcept;
void replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
/// For at least `kMinSize` bytes.
namespace avx2 {
inline constexpr std::size_t kMinSize = 32;
[[nodiscard]] bool arePrintable(ByteView bytes) noexcept;
[[nodiscard]] bool areFromSpaceOn(ByteView bytes) noexcept;
void replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
/// For at least `kMinSize` bytes.
namespace neon {
inline constexpr std::size_t kMinSize = 16;
[[nodiscard]] bool arePrintable(ByteView bytes) noexcept;
[[nodiscard]] bool areFromSpaceOn(ByteView bytes) noexcept;
void replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept;
}  // namespace neon
#endif

}  // namespace character_classes

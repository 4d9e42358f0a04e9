/// Hexadecimal text: two digits a byte, high nibble first (RFC 4648, section 8).
#pragma once

#include <cstdint>

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace hex {

[[nodiscard]] constexpr std::int64_t encodedSize(std::int64_t byteCount) noexcept { return 2 * byteCount; }

/// A last character without a partner yields nothing.
[[nodiscard]] constexpr std::int64_t decodedSize(std::int64_t characterCount) noexcept { return characterCount / 2; }

/// Writes each byte as two upper-case digits.
/// @param digits  exactly `encodedSize` long; may not overlap `bytes`
void encode(ByteView bytes, ByteSpan digits) noexcept;

/// Writes a byte for each pair of characters. Digits of either case count; a character that is no digit counts as 0
/// and is not skipped.
/// @param bytes  exactly `decodedSize` long; may not overlap `digits`
void decode(ByteView digits, ByteSpan bytes) noexcept;

namespace scalar {
void encode(ByteView bytes, ByteSpan digits) noexcept;
void decode(ByteView digits, ByteSpan bytes) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
void encode(ByteView bytes, ByteSpan digits) noexcept;
void decode(ByteView digits, ByteSpan bytes) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_AVX512
namespace avx512 {
void encode(ByteView bytes, ByteSpan digits) noexcept;
void decode(ByteView digits, ByteSpan bytes) noexcept;
}  // namespace avx512
#endif
#ifdef WIDE_NEON
namespace neon {
void encode(ByteView bytes, ByteSpan digits) noexcept;
void decode(ByteView digits, ByteSpan bytes) noexcept;
}  // namespace neon
#endif

}  // namespace hex

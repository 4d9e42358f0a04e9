/// Single-byte character sets: UTF-16 text to the bytes of a set, and back.
#pragma once

#include <cstdint>
#include <span>

#include "codecs/character_set.h"
#include "memory/byte_view.h"
#include "memory/limits.h"
#include "wide/cpu.h"

namespace charsets {

/// Texts of fewer code units than this are not encoded.
inline constexpr std::int64_t kMinEncodedUnits = 3;

/// Room for encoding: one byte for each code unit, and whole vectors.
[[nodiscard]] constexpr std::int64_t encodedBound(std::int64_t unitCount) noexcept { return withOverrun(unitCount); }

/// What the limit on sizes binds on: two bytes reserved for each code unit, and the 15 that a growable buffer needs
/// for itself.
[[nodiscard]] constexpr std::int64_t encodingReserve(std::int64_t unitCount) noexcept { return 2 * unitCount + 15; }

/// Writes the byte of each code unit that the set has, and nothing for the others, surrogates among them.
/// @param bytes  at least `encodedBound` long
/// @return the number of bytes written
[[nodiscard]] std::size_t encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept;

/// Size of the decoded text in bytes.
[[nodiscard]] constexpr std::int64_t decodedSize(std::int64_t byteCount) noexcept { return 2 * byteCount; }

/// What the limit on sizes binds on: a buffer that grows from the input's length by 1025 bytes at a time asks for
/// more than it can have when its contents come this close to the limit.
[[nodiscard]] constexpr std::int64_t decodingReserve(std::int64_t byteCount) noexcept { return 2 * byteCount + 32; }

/// Writes one code unit for each byte; U+0000 for the undefined ones.
/// @param text  exactly as many units as there are bytes
void decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept;

namespace scalar {
[[nodiscard]] std::size_t encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept;
void decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] std::size_t encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept;
void decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] std::size_t encode(Utf16View text, const CharacterSet& set, ByteSpan bytes) noexcept;
void decode(ByteView bytes, const CharacterSet& set, std::span<char16_t> text) noexcept;
}  // namespace neon
#endif

}  // namespace charsets

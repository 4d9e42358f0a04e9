/// Mail subjects: text beyond plain ASCII as one encoded word in UTF-8 (RFC 2047, "Q" encoding), however long.
#pragma once

#include <cstdint>

#include "memory/byte_view.h"
#include "memory/output_buffer.h"
#include "wide/cpu.h"

namespace email_subject {

inline constexpr char kOpening[] = "=?utf-8?Q?";
inline constexpr char kClosing[] = "?=";

/// The position of the first byte outside 0x20 to 0x7F, or the number of bytes when there is none.
[[nodiscard]] std::size_t findNotPlain(ByteView text) noexcept;

/// The length of the encoded word for a text.
[[nodiscard]] std::int64_t encodedSize(ByteView text) noexcept;

/// Writes a text as an encoded word: a space as "_", other bytes as themselves, but "=", "_" and bytes of 0x80 and
/// above escaped. Control characters and "?" stay as they are.
/// @return false when the word would exceed 2^31 - 1 bytes or memory is short
[[nodiscard]] bool encode(ByteView text, OutputBuffer& word) noexcept;

namespace scalar {
[[nodiscard]] std::size_t findNotPlain(ByteView text) noexcept;
[[nodiscard]] std::size_t countEscapes(ByteView text) noexcept;

/// Writes the text between opening and closing, and returns its end. May touch `kEscapeOverrun` bytes beyond it.
std::uint8_t* encode(ByteView text, std::uint8_t* out) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] std::size_t findNotPlain(ByteView text) noexcept;
[[nodiscard]] std::size_t countEscapes(ByteView text) noexcept;
std::uint8_t* encode(ByteView text, std::uint8_t* out) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] std::size_t findNotPlain(ByteView text) noexcept;
[[nodiscard]] std::size_t countEscapes(ByteView text) noexcept;
std::uint8_t* encode(ByteView text, std::uint8_t* out) noexcept;
}  // namespace neon
#endif

#ifdef WIDE_AVX512
namespace avx512 {
std::uint8_t* encode(ByteView text, std::uint8_t* out) noexcept;
}
#endif

}  // namespace email_subject

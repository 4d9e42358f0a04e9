/// Quoted-printable, the transfer encoding for text that is mostly ASCII (RFC 2045, section 6.7).
#pragma once

#include <cstdint>

#include "memory/byte_view.h"
#include "memory/output_buffer.h"
#include "wide/cpu.h"

namespace quoted_printable {

/// The line limit where the one asked for is below 2.
inline constexpr std::int32_t kDefaultLineLimit = 72;

[[nodiscard]] constexpr bool isLineBreak(std::uint8_t byte) noexcept { return byte == '\r' || byte == '\n'; }
[[nodiscard]] constexpr bool isBlank(std::uint8_t byte) noexcept { return byte == ' ' || byte == '\t'; }

/// The byte that makes a pair with a CR or LF.
[[nodiscard]] constexpr std::uint8_t otherLineBreak(std::uint8_t byte) noexcept { return byte ^ ('\r' ^ '\n'); }

/// The end of a line break: CR LF and LF CR are one, any other CR or LF is one of its own.
/// @param in  at a CR or LF, before `end`
[[nodiscard]] constexpr const std::uint8_t* lineBreakEnd(const std::uint8_t* in, const std::uint8_t* end) noexcept {
  const std::uint8_t other = otherLineBreak(*in++);
  return in != end && *in == other ? in + 1 : in;
}

/// Writes bytes as quoted-printable text. Every line break of the input becomes CR LF. Lines hold at most
/// `lineLimit` - 1 characters, the "=" of a soft break included, as long as an escape fits into them at all.
/// @return false when the text would exceed 2^31 - 1 bytes or memory is short
[[nodiscard]] bool encode(ByteView bytes, std::int32_t lineLimit, OutputBuffer& text) noexcept;

/// Room for decoding; as many bytes as the text has would do.
[[nodiscard]] constexpr std::int64_t decodedBound(std::int64_t textSize) noexcept { return withOverrun(textSize); }

/// Reads quoted-printable text. Every line break becomes LF. Malformed escapes yield nothing; a "=" before blanks
/// ends the line, whatever else stands in it.
/// @param bytes  at least as long as the text; all of it may be touched
/// @return       how many bytes were written
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;

/// How far a part of the work came.
struct Progress {
  const std::uint8_t* in;
  std::uint8_t* out;
};

/// Writes bytes with their escapes up to the first line break, without breaking lines.
/// @param limit  how many bytes to take at most
/// @param out    room for three bytes for each of them, and `kEscapeMargin` more
[[nodiscard]] Progress escape(ByteView bytes, std::size_t limit, std::uint8_t* out) noexcept;

/// What `escape` may touch beyond the text that it writes.
inline constexpr std::size_t kEscapeMargin = 112;

namespace scalar {
[[nodiscard]] Progress escape(ByteView bytes, std::size_t limit, std::uint8_t* out) noexcept;
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;

/// Reads one line break or what one "=" announces.
/// @param at  at a CR, LF or "=" before `end`
[[nodiscard]] Progress decodeSpecial(Progress at, const std::uint8_t* end) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] Progress escape(ByteView bytes, std::size_t limit, std::uint8_t* out) noexcept;
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] Progress escape(ByteView bytes, std::size_t limit, std::uint8_t* out) noexcept;
[[nodiscard]] std::size_t decode(ByteView text, ByteSpan bytes) noexcept;
}  // namespace neon
#endif

}  // namespace quoted_printable

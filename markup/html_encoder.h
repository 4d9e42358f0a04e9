/// Any text as ASCII that can stand in an HTML document (HTML 4.01, sections 5.3 and 24).
#pragma once

#include "memory/byte_view.h"
#include "memory/output_buffer.h"
#include "wide/cpu.h"

namespace html {

/// What becomes of quotation marks, ampersands, apostrophes, less-than and greater-than signs.
enum class Markup { kEscape, kKeep };

/// The size of the longest output in bytes: "&#-2147483648;" for each code point.
[[nodiscard]] constexpr std::int64_t encodedBound(std::int64_t codePointCount) noexcept { return 14 * codePointCount; }

/// Writes the text with named references for the characters that have one, decimal references for all others
/// above U+007F and for the apostrophe, and without control characters other than TAB, LF and CR.
/// Any 32-bit value is written; a decimal reference shows values of 2^31 and more as negative numbers.
/// @return false when the output would be too long or memory is short
[[nodiscard]] bool encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept;

namespace scalar {
[[nodiscard]] bool encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] bool encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] bool encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept;
}  // namespace neon
#endif

}  // namespace html

/// Any text with its markup characters as the predefined entities of XML (XML 1.0, section 4.6).
#pragma once

#include "memory/byte_view.h"
#include "memory/output_buffer.h"
#include "wide/cpu.h"

namespace xml {

/// How an apostrophe is written: "&#39;" is understood in HTML too, "&apos;" is what XML calls it.
enum class Apostrophe { kNumber, kName };

/// The size of the longest output in bytes: "&quot;" or "&apos;" for each code point, in 32-bit units.
[[nodiscard]] constexpr std::int64_t encodedBound(std::int64_t codePointCount) noexcept { return 24 * codePointCount; }

/// Writes the text with references for its markup characters, and without control characters other than TAB, LF and
/// CR; all other units stay what they are, whether they are code points or not.
/// @param codePoints  receives 32-bit units in the processor's byte order
/// @return false when the output would be too long or memory is short
[[nodiscard]] bool encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept;

namespace scalar {
[[nodiscard]] bool encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] bool encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] bool encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept;
}  // namespace neon
#endif

}  // namespace xml

/// Character references back to characters (HTML 4.01, section 5.3).
#pragma once

#include <cstddef>
#include <span>

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace entity_decoder {

/// False when the text holds no "&", so that decoding would only copy it.
[[nodiscard]] bool mayHaveReferences(Utf32View text) noexcept;

/// Writes the text with the character for each reference and returns how many code points that makes.
/// A reference is "&", a name of one to eight code points, and ";", which may be missing at the end of the text. The
/// name is one of `escapecodes`, or "#" or "#x" and a number from 1 up; what follows the digits counts for nothing.
/// Everything else is copied, single ampersands too. Values that are no code points are written like any other.
/// @param decoded  at least as long as the text; may not overlap it. All of it may be touched.
[[nodiscard]] std::size_t decode(Utf32View text, std::span<char32_t> decoded) noexcept;

namespace scalar {
[[nodiscard]] bool mayHaveReferences(Utf32View text) noexcept;
[[nodiscard]] std::size_t decode(Utf32View text, std::span<char32_t> decoded) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] bool mayHaveReferences(Utf32View text) noexcept;
[[nodiscard]] std::size_t decode(Utf32View text, std::span<char32_t> decoded) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] bool mayHaveReferences(Utf32View text) noexcept;
[[nodiscard]] std::size_t decode(Utf32View text, std::span<char32_t> decoded) noexcept;
}  // namespace neon
#endif

}  // namespace entity_decoder

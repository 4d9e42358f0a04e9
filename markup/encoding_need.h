/// Whether a text has to be encoded at all: the question both encoders begin with.
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

/// Both questions look at the code points before the first U+0000, or all of them. Control characters are no reason to
/// encode, although encoding drops them.
namespace encoding_need {

/// True when one of them is a markup character or above U+007F.
[[nodiscard]] bool forHtml(Utf32View text) noexcept;

/// True when one of them is a markup character.
[[nodiscard]] bool forXml(Utf32View text) noexcept;

namespace scalar {
[[nodiscard]] bool forHtml(Utf32View text) noexcept;
[[nodiscard]] bool forXml(Utf32View text) noexcept;
}  // namespace scalar

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] bool forHtml(Utf32View text) noexcept;
[[nodiscard]] bool forXml(Utf32View text) noexcept;
}  // namespace avx2
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] bool forHtml(Utf32View text) noexcept;
[[nodiscard]] bool forXml(Utf32View text) noexcept;
}  // namespace neon
#endif

}  // namespace encoding_need

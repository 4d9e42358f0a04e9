/// Between the UTF-8 of the public functions and the code units that kernels work on.
#pragma once

#include <string>
#include <string_view>

#include "memory/byte_view.h"

namespace stringkernels {

/// Code points of a text; one U+FFFD for each maximal subpart that is ill-formed (The Unicode Standard, section 3.9).
[[nodiscard]] std::u32string toUtf32(std::string_view utf8);

/// The same as code units.
[[nodiscard]] std::u16string toUtf16(std::string_view utf8);

/// UTF-8 of code points; U+FFFD for what is none: surrogates and values above U+10FFFF.
[[nodiscard]] std::string toUtf8(Utf32View codePoints);

}  // namespace stringkernels

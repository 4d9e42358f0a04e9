/// Nibble tables in vector registers.
#pragma once

#include "markup/markup_characters.h"
#include "wide/cpu.h"

#ifdef WIDE_AVX2
#include <immintrin.h>

namespace markup {

[[nodiscard]] AVX2_FUNCTION inline __m128i loaded(const NibbleTable& table) noexcept {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(table.entries));
}

}  // namespace markup
#endif  // WIDE_AVX2

/// Byte ranges, 16 bytes at a time.
#include "analysis/character_classes.h"

#ifdef WIDE_NEON

#include "wide/neon.h"

namespace {

using wide::all;
using wide::kVector;
using wide::load;

/// The range that signed bytes above 0x1F are: bytes of 0x80 and above are negative.
struct Printable {
  NEON_FUNCTION static uint8x16_t lower(uint8x16_t a, uint8x16_t b) noexcept {
    return vreinterpretq_u8_s8(vminq_s8(vreinterpretq_s8_u8(a), vreinterpretq_s8_u8(b)));
  }
  NEON_FUNCTION static uint8x16_t excludes(uint8x16_t bytes) noexcept {
    return vcltq_s8(vreinterpretq_s8_u8(bytes), vdupq_n_s8(0x20));
  }
};

struct FromSpaceOn {
  NEON_FUNCTION static uint8x16_t lower(uint8x16_t a, uint8x16_t b) noexcept { return vminq_u8(a, b); }
  NEON_FUNCTION static uint8x16_t excludes(uint8x16_t bytes) noexcept { return vcltq_u8(bytes, all(0x20)); }
};

template <typename Range>
NEON_FUNCTION inline bool containsAll(uint8x16_t bytes) noexcept {
  return !wide::any(Range::excludes(bytes));
}

/// Looks at the lowest of four vectors at a time.
template <typename Range>
NEON_FUNCTION bool containsAll(ByteView bytes) noexcept {
  const std::uint8_t* const in = bytes.data();
  const std::size_t size = bytes.size();
  std::size_t i = 0;
  for (; size - i >= 4 * kVector; i += 4 * kVector) {
    const uint8x16_t front = Range::lower(load(in + i), load(in + i + kVector));
    const uint8x16_t back = Range::lower(load(in + i + 2 * kVector), load(in + i + 3 * kVector));
    if (!containsAll<Range>(Range::lower(front, back))) return false;
  }
  for (; size - i >= kVector; i += kVector) {
    if (!containsAll<Range>(load(in + i))) return false;
  }
  return containsAll<Range>(load(in + size - kVector));  // some of it once more
}

NEON_FUNCTION inline void replace(const std::uint8_t* in, uint8x16_t replacement, std::uint8_t* out) noexcept {
  const uint8x16_t bytes = load(in);
  wide::store(out, vbslq_u8(Printable::excludes(bytes), replacement, bytes));
}

}  // namespace

NEON_FUNCTION bool character_classes::neon::arePrintable(ByteView bytes) noexcept {
  return containsAll<Printable>(bytes);
}

NEON_FUNCTION bool character_classes::neon::areFromSpaceOn(ByteView bytes) noexcept {
  return containsAll<FromSpaceOn>(bytes);
}

NEON_FUNCTION void character_classes::neon::replaceNonPrintable(ByteView bytes, std::uint8_t replacement,
                                                                ByteSpan out) noexcept {
  const uint8x16_t replacements = all(replacement);
  const std::size_t last = bytes.size() - kVector;  // some of it once more
  for (std::size_t i = 0; i < last; i += kVector) replace(bytes.data() + i, replacements, out.data() + i);
  replace(bytes.data() + last, replacements, out.data() + last);
}

#endif  // WIDE_NEON

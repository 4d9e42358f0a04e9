#include "markup/readiness.h"

#ifdef WIDE_NEON

#include "markup/markup_characters_neon.h"

namespace {

/// Marks the bytes that are not ready.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t notReady(const std::uint8_t* at, uint8x16_t markupOrNul) noexcept {
  const uint8x16_t bytes = wide::load(at);
  return vorrq_u8(markup::foundIn(markupOrNul, bytes), vcgeq_u8(bytes, wide::all(0x80)));
}

}  // namespace

NEON_FUNCTION bool readiness::neon::isReady(ByteView bytes) noexcept {
  constexpr std::size_t kTwo = std::size_t{2} * wide::kVector;
  const uint8x16_t markupOrNul = markup::loaded(markup::kMarkupOrNul);
  for (; bytes.size() >= kTwo; bytes = bytes.subspan(kTwo)) {
    const std::uint8_t* const at = bytes.data();
    if (wide::any(vorrq_u8(notReady(at, markupOrNul), notReady(at + wide::kVector, markupOrNul)))) return false;
  }
  return scalar::isReady(bytes);
}

#endif  // WIDE_NEON

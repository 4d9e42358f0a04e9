#include "markup/html_encoder.h"

#ifdef WIDE_NEON

#include <bit>

#include "markup/entity_lookup.h"
#include "markup/html_references.h"
#include "markup/markup_characters_neon.h"
#include "wide/code_points_neon.h"

namespace {

using wide::kCodePoints;

/// Marks the bytes that aren't written as they are.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t notOrdinary(uint8x16_t bytes, uint8x16_t exceptions) noexcept {
  const uint8x16_t outsidePrintable = vcltq_s8(vreinterpretq_s8_u8(bytes), vdupq_n_s8(0x20));  // or from 0x80 on
  return veorq_u8(markup::foundIn(exceptions, bytes), outsidePrintable);
}

/// Writes what stands for a code point that isn't written as it is; returns the end.
[[nodiscard]] NEON_FUNCTION inline std::uint8_t* writeSpecial(char32_t codePoint, std::uint8_t* out) noexcept {
  if (entities::mayHaveRecord(codePoint)) {
    const std::size_t position = entities::neon::positionOf(codePoint);
    if (entities::kCodes[position] == codePoint) return html::writeNamedReference(position, out);
    if (codePoint < 0x80) return out;
  }
  return markup::writeDecimalReference(codePoint, out);
}

/// Writes the first `count` code points of a block in which some may be special.
/// @param bytes    all of the block, right for those that are written as they are
/// @param special  one bit for each that isn't
[[nodiscard]] NEON_FUNCTION std::uint8_t* writeMixed(const char32_t* block, std::size_t count, uint8x16_t bytes,
                                                     std::uint32_t special, std::uint8_t* out) noexcept {
  std::size_t run = 0;  // the first byte that isn't written yet
  for (special &= (1U << count) - 1; special != 0; special &= special - 1) {
    const auto next = static_cast<std::size_t>(std::countr_zero(special));
    wide::store(out, wide::movedToFront(bytes, run));
    out = writeSpecial(block[next], out + (next - run));
    run = next + 1;
  }
  wide::store(out, wide::movedToFront(bytes, run));
  return out + (count - run);
}

/// Writes the first `count` code points of a whole block.
[[nodiscard]] NEON_FUNCTION inline std::uint8_t* writeBlock(const char32_t* block, std::size_t count,
                                                            uint8x16_t exceptions, std::uint8_t* out) noexcept {
  const uint8x16_t bytes = wide::nearestBytes(block);
  const uint8x16_t mask = notOrdinary(bytes, exceptions);
  if (wide::any(mask)) return writeMixed(block, count, bytes, wide::bits(mask), out);
  wide::store(out, bytes);
  return out + count;
}

constexpr int kBlockRoom = kCodePoints * html::kReferenceRoom + kCodePoints;

}  // namespace

NEON_FUNCTION bool html::neon::encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept {
  const uint8x16_t exceptions =
      markup::loaded(markup == Markup::kKeep ? markup::kKeptControl : markup::kMarkupOrKeptControl);
  std::uint8_t* out = ascii.begin();
  for (; text.size() >= kCodePoints; text = text.subspan(kCodePoints)) {
    if (!ascii.makeRoom(out, kBlockRoom)) return false;
    out = writeBlock(text.data(), kCodePoints, exceptions, out);
  }
  if (!text.empty()) {
    if (!ascii.makeRoom(out, kBlockRoom)) return false;
    const wide::CodePointTail tail(text.data(), text.size());
    out = writeBlock(tail.block, text.size(), exceptions, out);
  }
  return ascii.finish(out);
}

#endif  // WIDE_NEON

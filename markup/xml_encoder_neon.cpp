#include "markup/xml_encoder.h"

#ifdef WIDE_NEON

#include <algorithm>
#include <bit>

#include "markup/markup_characters_neon.h"
#include "markup/xml_references.h"
#include "wide/code_points_neon.h"

namespace {

using wide::kCodePoints;

/// Marks the code points of a block that aren't copied.
[[nodiscard]] NEON_FUNCTION inline uint8x16_t notOrdinary(const char32_t* block, uint8x16_t exceptions) noexcept {
  const uint8x16_t bytes = wide::nearestSignedBytes(block);
  return veorq_u8(markup::foundIn(exceptions, bytes), vcltq_u8(bytes, wide::all(0x20)));
}

/// Copies code points, in fours.
NEON_FUNCTION inline std::uint8_t* copyRun(const char32_t* from, std::size_t count, std::uint8_t* to) noexcept {
  for (std::size_t i = 0; i < count; i += 4) wide::copyFour(from + i, to + 4 * i);
  return to + 4 * count;
}

/// Writes the first `count` code points of a whole block. Three behind the block are read as well.
/// @param special  one bit for each that isn't copied
[[nodiscard]] NEON_FUNCTION std::uint8_t* writeMixed(const char32_t* block, std::size_t count, std::uint32_t special,
                                                     const xml::References& references, std::uint8_t* out) noexcept {
  std::size_t run = 0;  // the first code point that isn't written yet
  for (special &= (1U << count) - 1; special != 0; special &= special - 1) {
    const auto next = static_cast<std::size_t>(std::countr_zero(special));
    out = xml::writeReference(block[next], references, copyRun(block + run, next - run, out));
    run = next + 1;
  }
  return copyRun(block + run, count - run, out);
}

[[nodiscard]] NEON_FUNCTION inline std::uint8_t* writeBlock(const char32_t* block, std::size_t count,
                                                            uint8x16_t exceptions, const xml::References& references,
                                                            std::uint8_t* out) noexcept {
  const uint8x16_t mask = notOrdinary(block, exceptions);
  if (wide::any(mask)) return writeMixed(block, count, wide::bits(mask), references, out);
  for (std::size_t i = 0; i < kCodePoints; i += 4) wide::copyFour(block + i, out + 4 * i);
  return out + 4 * count;
}

constexpr std::size_t kReadBehind = 3;
constexpr int kBlockRoom = kCodePoints * xml::kReferenceRoom + 16;

}  // namespace

NEON_FUNCTION bool xml::neon::encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept {
  const uint8x16_t exceptions = markup::loaded(markup::kMarkupOrKeptControl);
  const References& references = referencesFor(apostrophe);
  std::uint8_t* out = codePoints.begin();
  for (; text.size() >= kCodePoints + kReadBehind; text = text.subspan(kCodePoints)) {
    if (!codePoints.makeRoom(out, kBlockRoom)) return false;
    out = writeBlock(text.data(), kCodePoints, exceptions, references, out);
  }
  char32_t rest[2 * kCodePoints + kReadBehind]{};
  for (std::size_t i = 0; i < text.size(); ++i) rest[i] = text[i];
  for (std::size_t i = 0; i < text.size(); i += kCodePoints) {
    if (!codePoints.makeRoom(out, kBlockRoom)) return false;
    out = writeBlock(rest + i, std::min(kCodePoints, text.size() - i), exceptions, references, out);
  }
  return codePoints.finish(out);
}

#endif  // WIDE_NEON

#include "markup/html_encoder.h"

#include <algorithm>

#include "markup/entity_lookup.h"
#include "markup/html_references.h"
#include "markup/markup_characters.h"
#include "markup/output_limit.h"
#include "memory/wrapping.h"

namespace {

/// Code points that are looked at together.
constexpr std::size_t kBlock = 16;

/// Writes what stands for a code point; returns the end.
std::uint8_t* writeCodePoint(char32_t codePoint, html::Markup markup, std::uint8_t* out) noexcept {
  if (markup::isDroppedControl(codePoint)) return out;
  const bool keep = markup == html::Markup::kKeep || !markup::isMarkupCharacter(codePoint);
  if (codePoint < 0x80 && keep) {
    *out++ = static_cast<std::uint8_t>(codePoint);
    return out;
  }
  if (entities::mayHaveRecord(codePoint)) {
    const std::size_t position = entities::scalar::positionOf(codePoint);
    if (entities::kCodes[position] == codePoint) return html::writeNamedReference(position, out);
  }
  return markup::writeDecimalReference(codePoint, out);
}

/// True when a block is printable ASCII that is written as it is.
[[nodiscard]] WRAPPING_FUNCTION bool areOrdinary(const char32_t* block, html::Markup markup) noexcept {
  const unsigned escape = markup == html::Markup::kEscape ? 1 : 0;
  unsigned special = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {  // without branches, for the compiler to widen
    special |= (block[i] - 0x20 > 0x5F ? 1U : 0U) | (markup::isMarkupCharacter(block[i]) ? escape : 0U);
  }
  return special == 0;
}

}  // namespace

bool html::scalar::encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept {
  std::uint8_t* out = ascii.begin();
  while (!text.empty()) {
    if (!ascii.makeRoom(out, kBlock * kReferenceRoom)) return false;
    const Utf32View block = text.first(std::min(kBlock, text.size()));
    text = text.subspan(block.size());
    if (block.size() == kBlock && areOrdinary(block.data(), markup)) {
      for (std::size_t i = 0; i < kBlock; ++i) *out++ = static_cast<std::uint8_t>(block[i]);
    } else {
      for (const char32_t codePoint : block) out = writeCodePoint(codePoint, markup, out);
    }
  }
  return ascii.finish(out);
}

bool html::encode(Utf32View text, Markup markup, OutputBuffer& ascii) noexcept {
  const auto encode = [markup](Utf32View part, OutputBuffer& output) noexcept {
#ifdef WIDE_AVX2
    if (cpu::hasAvx2()) return avx2::encode(part, markup, output);
#endif
#ifdef WIDE_NEON
    if (cpu::hasNeon()) return neon::encode(part, markup, output);
#endif
    return scalar::encode(part, markup, output);
  };
  const bool mayBeTooLong = encodedBound(std::ssize(text)) > kMaxSize;
  return mayBeTooLong && !markup::fitsIn(kMaxSize, text, encode) ? ascii.refuse() : encode(text, ascii);
}

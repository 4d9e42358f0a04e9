#include "markup/xml_encoder.h"

#include <algorithm>
#include <cstring>

#include "markup/markup_characters.h"
#include "markup/output_limit.h"
#include "markup/xml_references.h"

namespace {

/// Code points that are looked at together.
constexpr std::size_t kBlock = 16;

/// True when a block is copied as it is. Lines are short, so what ends them is looked for as well.
[[nodiscard]] bool areOrdinary(const char32_t* block) noexcept {
  unsigned special = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {  // without branches, for the compiler to widen
    special |= (block[i] < 0x20 ? 1U : 0U) | markup::isMarkupCharacter(block[i]);
  }
  return special == 0;
}

}  // namespace

bool xml::scalar::encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept {
  const References& references = referencesFor(apostrophe);
  std::uint8_t* out = codePoints.begin();
  while (!text.empty()) {
    if (!codePoints.makeRoom(out, kBlock * kReferenceRoom)) return false;
    const Utf32View block = text.first(std::min(kBlock, text.size()));
    text = text.subspan(block.size());
    if (block.size() == kBlock && areOrdinary(block.data())) {
      std::memcpy(out, block.data(), block.size_bytes());
      out += block.size_bytes();
      continue;
    }
    for (const char32_t codePoint : block) {
      if (markup::isMarkupCharacter(codePoint)) {
        out = writeReference(codePoint, references, out);
      } else if (!markup::isDroppedControl(codePoint)) {
        std::memcpy(out, &codePoint, sizeof codePoint);
        out += sizeof codePoint;
      }
    }
  }
  return codePoints.finish(out);
}

bool xml::encode(Utf32View text, Apostrophe apostrophe, OutputBuffer& codePoints) noexcept {
  const auto encode = [apostrophe](Utf32View part, OutputBuffer& output) noexcept {
#ifdef WIDE_AVX2
    if (cpu::hasAvx2()) return avx2::encode(part, apostrophe, output);
#endif
#ifdef WIDE_NEON
    if (cpu::hasNeon()) return neon::encode(part, apostrophe, output);
#endif
    return scalar::encode(part, apostrophe, output);
  };
  const bool mayBeTooLong = encodedBound(std::ssize(text)) > kMaxSize;
  return mayBeTooLong && !markup::fitsIn(kMaxSize, text, encode) ? codePoints.refuse() : encode(text, codePoints);
}

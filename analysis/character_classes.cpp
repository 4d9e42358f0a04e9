/// The plain form of byte ranges, and the choice between the forms.
#include "analysis/character_classes.h"

#include "memory/wrapping.h"
#include "wide/byte_word.h"

namespace {

using byte_word::kHighBits;
using byte_word::kSize;
using byte_word::load;
using byte_word::store;
using Word = std::uint64_t;

constexpr Word kSpaces = byte_word::kOnes * ' ';

/// Fewer than 8 bytes, completed with spaces, which are in every range.
Word loadShort(const std::uint8_t* bytes, std::size_t count) noexcept {
  Word word = kSpaces;
  std::memcpy(&word, bytes, count);
  return word;
}

/// Not 0 when one of 8 bytes is below 0x20. The first such byte, and none before it, borrows from the next one.
WRAPPING_FUNCTION Word controls(Word word) noexcept { return (word - kSpaces) & ~word & kHighBits; }

WRAPPING_FUNCTION Word nonPrintables(Word word) noexcept { return ((word - kSpaces) | word) & kHighBits; }

template <Word (*kOutsiders)(Word)>
bool areAllInside(ByteView bytes) noexcept {
  const std::uint8_t* const in = bytes.data();
  const std::size_t size = bytes.size();
  if (size < kSize) return size == 0 || kOutsiders(loadShort(in, size)) == 0;
  for (std::size_t i = 0; i + kSize <= size; i += kSize) {
    if (kOutsiders(load(in + i)) != 0) return false;
  }
  return kOutsiders(load(in + size - kSize)) == 0;  // some of it once more
}

/// 8 bytes with the replacement in the right places. Nothing is borrowed: each byte subtracted from is 0x80 or more.
Word replaced(Word word, Word replacement) noexcept {
  const Word printables = ((word | kHighBits) - kSpaces) & ~word & kHighBits;
  const Word kept = (printables >> 7) * 0xFF;
  return (word & kept) | (replacement & ~kept);
}

}  // namespace

bool character_classes::scalar::arePrintable(ByteView bytes) noexcept { return areAllInside<nonPrintables>(bytes); }

bool character_classes::scalar::areFromSpaceOn(ByteView bytes) noexcept { return areAllInside<controls>(bytes); }

void character_classes::scalar::replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept {
  const Word replacements = byte_word::kOnes * replacement;
  const std::uint8_t* const in = bytes.data();
  std::uint8_t* const to = out.data();
  const std::size_t size = bytes.size();
  if (size < kSize) {
    if (size == 0) return;
    const Word word = replaced(loadShort(in, size), replacements);
    std::memcpy(to, &word, size);
    return;
  }
  for (std::size_t i = 0; i + kSize <= size; i += kSize) store(to + i, replaced(load(in + i), replacements));
  store(to + size - kSize, replaced(load(in + size - kSize), replacements));  // some of it once more
}

bool character_classes::arePrintable(ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= avx2::kMinSize && cpu::hasAvx2()) return avx2::arePrintable(bytes);
#endif
#ifdef WIDE_NEON
  if (bytes.size() >= neon::kMinSize && cpu::hasNeon()) return neon::arePrintable(bytes);
#endif
  return scalar::arePrintable(bytes);
}

bool character_classes::areFromSpaceOn(ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= avx2::kMinSize && cpu::hasAvx2()) return avx2::areFromSpaceOn(bytes);
#endif
#ifdef WIDE_NEON
  if (bytes.size() >= neon::kMinSize && cpu::hasNeon()) return neon::areFromSpaceOn(bytes);
#endif
  return scalar::areFromSpaceOn(bytes);
}

void character_classes::replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= avx2::kMinSize && cpu::hasAvx2()) return avx2::replaceNonPrintable(bytes, replacement, out);
#endif
#ifdef WIDE_NEON
  if (bytes.size() >= neon::kMinSize && cpu::hasNeon()) return neon::replaceNonPrintable(bytes, replacement, out);
#endif
  scalar::replaceNonPrintable(bytes, replacement, out);
}

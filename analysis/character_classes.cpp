#include "analysis/character_classes.h"

#include <cstring>

namespace {

using character_classes::ByteClass;
using Word = std::uint64_t;

constexpr std::size_t kWordSize = sizeof(Word);

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 32;

constexpr Word everyByte(std::uint8_t byte) noexcept { return Word{byte} * 0x0101'0101'0101'0101; }

constexpr Word kHighBits = everyByte(0x80);
constexpr Word kSpaces = everyByte(' ');

Word load(const std::uint8_t* bytes) noexcept {
  Word word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

void store(Word word, std::uint8_t* bytes, std::size_t count = kWordSize) noexcept { std::memcpy(bytes, &word, count); }

/// Not 0 when one of 8 bytes isn't of the class. The subtraction borrows from a byte below 0x20 only, and then there
/// is one.
template <ByteClass kClass>
Word outsiders(Word word) noexcept {
  switch (kClass) {
    case ByteClass::kSevenBit:
      return word & kHighBits;
    case ByteClass::kPrintable:
      return ((word - kSpaces) | word) & kHighBits;
    case ByteClass::kFromSpaceOn:
      return (word - kSpaces) & ~word & kHighBits;
  }
  return 0;
}

/// The bytes at hand, completed with spaces, which are of every class.
Word loadShort(const std::uint8_t* bytes, std::size_t count) noexcept {
  Word word = kSpaces;
  std::memcpy(&word, bytes, count);
  return word;
}

template <ByteClass kClass>
bool allOf(ByteView bytes) noexcept {
  const std::uint8_t* const in = bytes.data();
  const std::size_t size = bytes.size();
  if (size < kWordSize) return size == 0 || outsiders<kClass>(loadShort(in, size)) == 0;
  for (std::size_t i = 0; i + kWordSize <= size; i += kWordSize) {
    if (outsiders<kClass>(load(in + i)) != 0) return false;
  }
  return outsiders<kClass>(load(in + size - kWordSize)) == 0;  // some of it once more
}

/// 8 bytes with the replacement where one isn't printable. No byte borrows from the next: each is 0x80 or more.
Word replaced(Word word, Word replacement) noexcept {
  const Word marks = ((word | kHighBits) - kSpaces) & ~word & kHighBits;
  const Word kept = (marks >> 7) * 0xFF;
  return (word & kept) | (replacement & ~kept);
}

}  // namespace

bool character_classes::scalar::consistsOf(ByteClass byteClass, ByteView bytes) noexcept {
  switch (byteClass) {
    case ByteClass::kSevenBit:
      return allOf<ByteClass::kSevenBit>(bytes);
    case ByteClass::kPrintable:
      return allOf<ByteClass::kPrintable>(bytes);
    case ByteClass::kFromSpaceOn:
      return allOf<ByteClass::kFromSpaceOn>(bytes);
  }
  return false;
}

void character_classes::scalar::replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept {
  const Word replacements = everyByte(replacement);
  const std::uint8_t* const in = bytes.data();
  std::uint8_t* const to = out.data();
  const std::size_t size = bytes.size();
  if (size < kWordSize) {
    if (size != 0) store(replaced(loadShort(in, size), replacements), to, size);
    return;
  }
  for (std::size_t i = 0; i + kWordSize <= size; i += kWordSize) store(replaced(load(in + i), replacements), to + i);
  store(replaced(load(in + size - kWordSize), replacements), to + size - kWordSize);  // some of it once more
}

bool character_classes::consistsOf(ByteClass byteClass, ByteView bytes) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= kWideFrom && cpu::hasAvx2()) return avx2::consistsOf(byteClass, bytes);
#endif
  return scalar::consistsOf(byteClass, bytes);
}

void character_classes::replaceNonPrintable(ByteView bytes, std::uint8_t replacement, ByteSpan out) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= kWideFrom && cpu::hasAvx2()) return avx2::replaceNonPrintable(bytes, replacement, out);
#endif
  scalar::replaceNonPrintable(bytes, replacement, out);
}

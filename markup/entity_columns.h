/// The entity table column by column, as the lookups scan it, and what the lookups rely on, proved.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "markup/entity_tables.h"

namespace entities {

/// Records in `escapecodes`, its end not counted.
inline constexpr std::size_t kCount = std::size(escapecodes) - 1;
inline constexpr std::size_t kMarkupCount = std::size(escapecodesXML) - 1;

/// Names are this long at most.
inline constexpr std::size_t kLongestName = 8;

/// Columns are filled up to whole vectors with records that no lookup finds.
inline constexpr std::size_t kColumnSize = 256;

/// A name in one word: its first character in the low byte, zeros behind the last.
using PackedName = std::uint64_t;

[[nodiscard]] constexpr PackedName packedName(const char* name) noexcept {
  PackedName packed = 0;
  for (unsigned shift = 0; *name != 0; shift += 8) packed |= PackedName{static_cast<std::uint8_t>(*name++)} << shift;
  return packed;
}

/// 16 bits hold every code, and compare right as signed numbers too. The filling is above every code.
inline constexpr auto kCodes = [] {
  std::array<std::uint16_t, kColumnSize> codes{};
  codes.fill(0x7FFF);
  for (std::size_t i = 0; i < kCount; ++i) codes[i] = static_cast<std::uint16_t>(escapecodes[i].code);
  return codes;
}();

/// The widest stretch without a record: from after the Greek letters to before the punctuation, nearly all scripts.
inline constexpr std::size_t kGap = [] {
  std::size_t widest = 1;
  for (std::size_t i = 1; i < kCount; ++i) {
    if (kCodes[i] - kCodes[i - 1] > kCodes[widest] - kCodes[widest - 1]) widest = i;
  }
  return widest;
}();

/// False for characters that can't be in the table by their place alone. Only the others are looked up.
[[nodiscard]] constexpr bool mayHaveRecord(std::uint32_t code) noexcept {
  return code <= kCodes[kGap - 1] || (code >= kCodes[kGap] && code <= kCodes[kCount - 1]);
}

/// The filling is 0: the empty name, which is never looked up.
inline constexpr auto kNames = [] {
  std::array<PackedName, kColumnSize> names{};
  for (std::size_t i = 0; i < kCount; ++i) names[i] = packedName(escapecodes[i].name);
  return names;
}();

namespace proofs {

consteval bool endsWithTerminator(const EscapeCode* table, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (table[i].code == 0 || table[i].name == nullptr) return false;
  }
  return table[count].code == 0 && table[count].name == nullptr;
}

consteval bool codesAscend() {
  for (std::size_t i = 1; i < kCount; ++i) {
    if (escapecodes[i].code <= escapecodes[i - 1].code) return false;
  }
  return true;
}

consteval bool beginsWithMarkupCharacters() {
  for (std::size_t i = 0; i < kMarkupCount; ++i) {
    if (escapecodes[i].code != escapecodesXML[i].code) return false;
    if (kNames[i] != packedName(escapecodesXML[i].name)) return false;
  }
  return escapecodes[kMarkupCount].code == 0xA0;
}

/// Names begin with a letter, and letters and digits are all there is in them.
consteval bool namesAreShortAndAlphanumeric() {
  for (std::size_t i = 0; i < kCount; ++i) {
    std::size_t length = 0;
    if (escapecodes[i].name[0] < 'A') return false;
    for (const char* c = escapecodes[i].name; *c != 0; ++c, ++length) {
      if (!((*c >= '0' && *c <= '9') || (*c >= 'A' && *c <= 'Z') || (*c >= 'a' && *c <= 'z'))) return false;
    }
    if (length < 2 || length > kLongestName) return false;
  }
  return true;
}

/// Pairs of records whose names are equal, letter case aside where `caseMask` clears its bit.
consteval int equalNames(PackedName caseMask) {
  int pairs = 0;
  for (std::size_t i = 0; i < kCount; ++i) {
    for (std::size_t k = 0; k < i; ++k) pairs += (kNames[i] & caseMask) == (kNames[k] & caseMask) ? 1 : 0;
  }
  return pairs;
}

static_assert(kCount == 253 && kMarkupCount == 5);
static_assert(endsWithTerminator(escapecodes, kCount) && endsWithTerminator(escapecodesXML, kMarkupCount));
static_assert(codesAscend());
static_assert(beginsWithMarkupCharacters());
static_assert(namesAreShortAndAlphanumeric());
static_assert(equalNames(~PackedName{0}) == 0);
static_assert(equalNames(0xDFDF'DFDF'DFDF'DFDF) == 64);
static_assert(kCount < kColumnSize && kCodes[kCount - 1] < 0x7FFF);
static_assert(kCodes[kGap - 1] == 0x03D6 && kCodes[kGap] == 0x2002);

}  // namespace proofs
}  // namespace entities

/// A map from code points to numbers, for the characters of a text.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "memory/byte_view.h"
#include "memory/heap_units.h"
#include "memory/wrapping.h"

/// Maps any 32-bit value to a number, 0 where none was stored. Code points below 256 index a table, all others are
/// hashed (open addressing, linear probing). Up to 64 of those need no memory beyond the object.
template <typename Number>
class CodePointMap {
 public:
  /// Prepares for the code points of two texts; no others may be asked for.
  CodePointMap(Utf32View a, Utf32View b) noexcept;
  CodePointMap(const CodePointMap&) = delete;
  CodePointMap& operator=(const CodePointMap&) = delete;

  /// The number of a code point. What this refers to may be changed to another number but 0 where it isn't 0.
  [[nodiscard]] Number& operator[](char32_t codePoint) noexcept {
    if (codePoint < kDirect) return direct_[codePoint];
    return used_ == 0 ? none_ : place(codePoint).number;
  }

  /// Where to store the number of a code point, which must not be 0: valid until the next call. Null when there is
  /// no memory for it.
  [[nodiscard]] Number* entry(char32_t codePoint) noexcept {
    if (codePoint < kDirect) return &direct_[codePoint];
    if (used_ == 0) std::memset(inline_, 0, sizeof inline_);
    Place* found = &place(codePoint);
    if (found->number != 0) return &found->number;
    if (2 * (used_ + 1) > mask_ + 1) {
      if (!grow()) return nullptr;
      found = &place(codePoint);
    }
    ++used_;
    found->codePoint = codePoint;
    return &found->number;
  }

 private:
  static constexpr std::size_t kDirect = 256;
  static constexpr std::size_t kInlinePlaces = 128;

  struct Place {
    Number number;  ///< 0 while the place is free
    char32_t codePoint;
  };

  [[nodiscard]] WRAPPING_FUNCTION Place& place(char32_t codePoint) noexcept {
    std::size_t i = static_cast<std::size_t>((codePoint * multiplier_) >> 32) & mask_;
    while (places_[i].number != 0 && places_[i].codePoint != codePoint) i = (i + 1) & mask_;
    return places_[i];
  }

  [[nodiscard]] bool grow() noexcept;

  Place* places_ = inline_;
  std::size_t mask_ = kInlinePlaces - 1;
  std::size_t used_ = 0;
  std::uint64_t multiplier_;
  Number none_ = 0;
  HeapUnits<Place> heap_;
  Number direct_[kDirect];
  Place inline_[kInlinePlaces];
};

template <typename Number>
WRAPPING_FUNCTION CodePointMap<Number>::CodePointMap(Utf32View a, Utf32View b) noexcept {
  // Whoever makes up texts doesn't know where in memory the map lies, and so can't make up collisions.
  multiplier_ = (static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(this)) * 0x9E37'79B9'7F4A'7C15) | 1;
  if (a.size() + b.size() >= kDirect) {
    std::memset(direct_, 0, sizeof direct_);
    return;
  }
  // For short texts it is cheaper to prepare only what they touch.
  for (const Utf32View text : {a, b}) {
    for (const char32_t codePoint : text) {
      if (codePoint < kDirect) direct_[codePoint] = 0;
    }
  }
}

template <typename Number>
bool CodePointMap<Number>::grow() noexcept {
  constexpr std::size_t kGrowth = 4;
  const std::size_t count = kGrowth * (mask_ + 1);
  HeapUnits<Place> grown = allocateUnits<Place>(static_cast<std::int64_t>(count * sizeof(Place)));
  if (grown == nullptr) return false;
  std::memset(grown.get(), 0, count * sizeof(Place));
  const Place* const begin = places_;
  const Place* const end = begin + mask_ + 1;
  places_ = grown.get();
  mask_ = count - 1;
  for (const Place* old = begin; old != end; ++old) {
    if (old->number != 0) place(old->codePoint) = *old;
  }
  heap_ = std::move(grown);
  return true;
}

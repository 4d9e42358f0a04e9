/// Input and output of kernels at chosen alignments, in memory that shows when a kernel leaves its span.
#pragma once

#include <cstddef>
#include <cstring>
#include <doctest/doctest.h>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "memory/byte_view.h"

#ifdef __has_feature
#define PLACED_BYTES_ARE_WATCHED __has_feature(address_sanitizer)
#endif

inline ByteView viewOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Bytes, or units of several, that begin `offset` units behind an aligned address. A sanitizer watches the byte after
/// the last one; without a sanitizer a margin on both sides tells whether it was written to.
template <typename Unit>
class PlacedUnits {
 public:
  using Character = std::conditional_t<sizeof(Unit) == 1, char, Unit>;

  PlacedUnits(std::size_t size, std::size_t offset)
      : size_(size * sizeof(Unit)), start_(kMargin + offset * sizeof(Unit)), block_(new std::uint8_t[blockSize()]) {
    std::memset(block_.get(), kUntouched, blockSize());
  }
  PlacedUnits(std::basic_string_view<Character> text, std::size_t offset) : PlacedUnits(text.size(), offset) {
    if (!text.empty()) std::memcpy(span().data(), text.data(), size_);
  }

  [[nodiscard]] std::span<Unit> span() const {
    return {reinterpret_cast<Unit*>(block_.get() + start_), size_ / sizeof(Unit)};
  }
  [[nodiscard]] std::basic_string<Character> text() const {
    return {reinterpret_cast<const Character*>(span().data()), span().size()};
  }

  /// True while nothing around the bytes has been written.
  [[nodiscard]] bool marginsIntact() const {
    for (std::size_t i = 0; i < blockSize(); ++i) {
      const bool outside = i < start_ || i >= start_ + size_;
      if (outside && block_[i] != kUntouched) return false;
    }
    return true;
  }

 private:
#if defined(__SANITIZE_ADDRESS__) || PLACED_BYTES_ARE_WATCHED
  static constexpr std::size_t kMarginBehind = 0;
#else
  static constexpr std::size_t kMarginBehind = 64;
#endif
  static constexpr std::size_t kMargin = 64;
  static constexpr std::uint8_t kUntouched = 0xB7;

  [[nodiscard]] std::size_t blockSize() const { return start_ + size_ + kMarginBehind; }

  std::size_t size_;
  std::size_t start_;
  std::unique_ptr<std::uint8_t[]> block_;
};

using PlacedBytes = PlacedUnits<std::uint8_t>;
using PlacedUtf16 = PlacedUnits<char16_t>;
using PlacedUtf32 = PlacedUnits<char32_t>;

/// What a kernel writes: it is given an input and exactly this much room, at alignments that the offset chooses, and
/// returns how much of the room it took, or nothing where it fills it.
template <typename Kernel>
std::string written(Kernel kernel, std::string_view input, std::size_t room, std::size_t offset = 0) {
  const PlacedBytes in(input, offset % 32);
  const PlacedBytes out(room, offset / 32);
  std::size_t length = room;
  if constexpr (std::is_void_v<std::invoke_result_t<Kernel, ByteView, ByteSpan>>) {
    kernel(in.span(), out.span());
  } else {
    length = kernel(in.span(), out.span());
  }
  CHECK(out.marginsIntact());
  REQUIRE(length <= room);
  return out.text().substr(0, length);
}

#include "markup/tag_removal.h"

#ifdef WIDE_NEON

#include <algorithm>
#include <bit>

#include "markup/markup_characters_neon.h"
#include "markup/tag_depths.h"

namespace {

using tags::Brackets;
using wide::Block;
using wide::kBlock;

/// Bytes that are looked at together: two blocks.
constexpr std::size_t kWindow = 2 * kBlock;

[[nodiscard]] NEON_FUNCTION inline std::uint64_t placesOf(std::uint8_t byte, Block low, Block high) noexcept {
  return wide::placesOf(byte, low) | std::uint64_t{wide::placesOf(byte, high)} << kBlock;
}

[[nodiscard]] NEON_FUNCTION inline Brackets bracketsOf(Block low, Block high) noexcept {
  return {placesOf('<', low, high), placesOf('>', low, high), placesOf(0, low, high)};
}

/// True when there is neither a bracket nor a zero byte.
[[nodiscard]] NEON_FUNCTION inline bool isPlain(Block low, Block high) noexcept {
  const uint8x16_t table = markup::loaded(markup::kBracketOrZero);
  const uint8x16_t front = vorrq_u8(markup::foundIn(table, low.low), markup::foundIn(table, low.high));
  const uint8x16_t back = vorrq_u8(markup::foundIn(table, high.low), markup::foundIn(table, high.high));
  return !wide::any(vorrq_u8(front, back));
}

/// Writes the bytes of a window that are outside tags, and up to a window in all; returns the end.
[[nodiscard]] NEON_FUNCTION inline std::uint8_t* removeFromWindow(const std::uint8_t* at, std::int64_t& depth,
                                                                  std::uint8_t* out) noexcept {
  const Block low = wide::loadBlock(at);
  const Block high = wide::loadBlock(at + kBlock);
  if (isPlain(low, high)) [[likely]] {
    wide::store(out, low);
    wide::store(out + kBlock, high);
    return out + (depth == 0 ? kWindow : 0);
  }
  const std::uint64_t outside = tags::sorted(bracketsOf(low, high), depth).outside;
  out = wide::storeKept(out, low, static_cast<std::uint32_t>(outside));
  return wide::storeKept(out, high, static_cast<std::uint32_t>(outside >> kBlock));
}

/// The last bytes of a text, fewer than a window, with zeros behind them.
struct Tail {
  std::uint8_t window[kWindow]{};

  explicit Tail(ByteView bytes) noexcept { std::copy(bytes.begin(), bytes.end(), window); }
};

}  // namespace

NEON_FUNCTION std::size_t tags::neon::remove(ByteView text, ByteSpan kept) noexcept {
  std::uint8_t* out = kept.data();
  std::int64_t depth = 0;
  // Never more is written than was read, so that storing whole vectors stays inside.
  for (; text.size() >= kWindow; text = text.subspan(kWindow)) out = removeFromWindow(text.data(), depth, out);
  std::uint8_t last[kWindow];
  const std::uint8_t* const end = removeFromWindow(Tail(text).window, depth, last);
  return static_cast<std::size_t>(std::copy(static_cast<const std::uint8_t*>(last), end, out) - kept.data());
}

NEON_FUNCTION std::int64_t tags::neon::replacedSize(ByteView text, ByteView replacement) noexcept {
  std::int64_t depth = 0;
  std::int64_t outside = 0;
  std::int64_t inside = 0;
  while (!text.empty()) {
    const std::size_t count = std::min(text.size(), kWindow);
    const Tail window(text.first(count));
    const Sorted bytes =
        sorted(bracketsOf(wide::loadBlock(window.window), wide::loadBlock(window.window + kBlock)), depth);
    outside += std::popcount(bytes.outside);
    inside += std::popcount(bytes.inside);
    text = text.subspan(count);
  }
  return outside + inside * static_cast<std::int64_t>(replacement.size());
}

#endif  // WIDE_NEON

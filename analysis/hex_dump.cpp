/// The plain form of hex dumps, and the choice between the forms.
#include "analysis/hex_dump.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "codecs/hex.h"
#include "codecs/hex_digits.h"

namespace {

using hex_dump::Layout;

/// From this many bytes on the wide registers win.
constexpr std::size_t kWideFrom = 256;

/// From this many digits on groups are left to the hex codec.
constexpr std::int64_t kLargeGroup = 64;

/// The two digits of each byte.
constexpr std::array<std::array<std::uint8_t, 2>, 256> kHexPairs = [] {
  std::array<std::array<std::uint8_t, 2>, 256> pairs{};
  for (unsigned byte = 0; byte < pairs.size(); ++byte) pairs[byte] = {kHexDigits[byte >> 4], kHexDigits[byte & 0x0F]};
  return pairs;
}();

constexpr std::int64_t kEndless = std::numeric_limits<std::int64_t>::max();

/// Sums and products of numbers that are not negative; they stay at the largest once they reach it.
std::int64_t saturatingSum(std::int64_t a, std::int64_t b) noexcept {
  std::int64_t sum = 0;
  return __builtin_add_overflow(a, b, &sum) ? kEndless : sum;
}
std::int64_t saturatingProduct(std::int64_t a, std::int64_t b) noexcept {
  std::int64_t product = 0;
  return __builtin_mul_overflow(a, b, &product) ? kEndless : product;
}

std::int64_t lineCount(std::int64_t byteCount, const Layout& layout) noexcept {
  const std::int64_t perLine = layout.lineDigits();
  return 2 * byteCount / perLine + (2 * byteCount % perLine != 0 ? 1 : 0);
}

/// What stands between digits is mostly of a byte or two, too short for a call.
std::uint8_t* append(ByteView text, std::uint8_t* out) noexcept {
  constexpr std::size_t kShort = 8;
  if (text.size() > kShort) {
    std::memcpy(out, text.data(), text.size());
  } else {
    for (std::size_t i = 0; i < text.size(); ++i) out[i] = text[i];
  }
  return out + text.size();
}

/// Where the next digit goes, and what is left until the next spacer and the next line end.
struct Cursor {
  std::uint8_t* out;
  std::int64_t digits;
  std::int64_t groups;

  [[nodiscard]] bool isAtLineStart(const Layout& layout) const noexcept {
    return groups == layout.lineGroups && digits == layout.groupDigits;
  }
};

/// Calls `write(index, text)` for so many pieces in turn, each of them `width` digits of one group, and writes what
/// stands after each: nothing, a spacer, or a line end. The start of a line is written with its first digits.
template <typename Write>
void writePieces(const Layout& layout, Cursor& at, std::int64_t width, std::int64_t count, Write write) noexcept {
  Cursor cursor = at;
  if (count > 0 && cursor.isAtLineStart(layout)) cursor.out = append(layout.lineStart, cursor.out);
  for (std::int64_t index = 0; index < count; ++index) {
    write(index, cursor.out);
    cursor.out += width;
    cursor.digits -= width;
    if (cursor.digits > 0) continue;
    cursor.digits = layout.groupDigits;
    if (--cursor.groups > 0) {
      cursor.out = append(layout.spacer, cursor.out);
    } else {
      cursor.groups = layout.lineGroups;
      cursor.out = append(layout.lineEnd, cursor.out);
      if (index + 1 < count) cursor.out = append(layout.lineStart, cursor.out);
    }
  }
  at = cursor;
}

void writeNibbles(ByteView bytes, const Layout& layout, Cursor& at) noexcept {
  writePieces(layout, at, 1, 2 * std::ssize(bytes), [in = bytes.data()](std::int64_t index, std::uint8_t* out) {
    *out = kHexDigits[in[index / 2] >> (index % 2 == 0 ? 4 : 0) & 0x0F];
  });
}

void writeBytes(ByteView bytes, const Layout& layout, Cursor& at) noexcept {
  writePieces(layout, at, 2, std::ssize(bytes), [in = bytes.data()](std::int64_t index, std::uint8_t* out) {
    std::memcpy(out, kHexPairs[in[index]].data(), 2);
  });
}

/// The dump that is asked for most: groups of a byte, one character between them.
void writeSpacedBytes(ByteView bytes, const Layout& layout, Cursor& at) noexcept {
  const std::uint8_t spacer = layout.spacer[0];
  const std::uint8_t* in = bytes.data();
  const std::uint8_t* const end = in + bytes.size();
  std::uint8_t* out = at.out;
  while (in != end) {
    const std::int64_t groups = std::min<std::int64_t>(layout.lineGroups, end - in);
    out = append(layout.lineStart, out);
    for (const std::uint8_t* const last = in + groups - 1; in != last; out += 3) {
      std::memcpy(out, kHexPairs[*in++].data(), 2);
      out[2] = spacer;
    }
    std::memcpy(out, kHexPairs[*in++].data(), 2);
    at.groups = groups < layout.lineGroups ? layout.lineGroups - groups : layout.lineGroups;
    out = append(groups < layout.lineGroups ? layout.spacer : layout.lineEnd, out + 2);
  }
  at.out = out;
}

void writeGroups(ByteView bytes, const Layout& layout, Cursor& at) noexcept {
  const std::int64_t size = layout.groupDigits / 2;
  const std::int64_t groups = std::ssize(bytes) / size;
  const auto encode = [in = bytes.data()](std::int64_t from, std::int64_t count, std::uint8_t* out) {
    hex::encode({in + from, static_cast<std::size_t>(count)}, {out, static_cast<std::size_t>(2 * count)});
  };
  writePieces(layout, at, 2 * size, groups,
              [=](std::int64_t index, std::uint8_t* out) { encode(index * size, size, out); });
  const std::int64_t rest = std::ssize(bytes) % size;
  if (rest == 0) return;
  writePieces(layout, at, 2 * rest, 1, [=](std::int64_t, std::uint8_t* out) { encode(groups * size, rest, out); });
}

/// Completes the last line.
void writeFill(const Layout& layout, Cursor& at, ByteSpan text) noexcept {
  if (at.isAtLineStart(layout)) return;
  if (layout.filler.size() > 1) {
    auto fill = layout.filler.begin();
    writePieces(layout, at, 1, at.digits + (at.groups - 1) * layout.groupDigits, [&](std::int64_t, std::uint8_t* out) {
      *out = *fill++;
      if (fill == layout.filler.end()) fill = layout.filler.begin();
    });
    return;
  }
  // It is the same everywhere, and what stands between goes over it.
  const auto size = static_cast<std::size_t>(text.data() + text.size() - at.out);
  std::memset(at.out, layout.filler.empty() ? '0' : layout.filler[0], size);
  const auto nothing = [](std::int64_t, std::uint8_t*) {};
  const std::int64_t wholeGroups = at.groups - 1;
  writePieces(layout, at, at.digits, 1, nothing);
  writePieces(layout, at, layout.groupDigits, wholeGroups, nothing);
}

}  // namespace

std::int64_t hex_dump::digitCount(std::int64_t byteCount, const Layout& layout) noexcept {
  return lineCount(byteCount, layout) * layout.lineDigits();
}

std::int64_t hex_dump::lineSize(const Layout& layout) noexcept {
  const std::int64_t frame = saturatingSum(std::ssize(layout.lineStart), std::ssize(layout.lineEnd));
  const std::int64_t spacers = saturatingProduct(layout.lineGroups - 1, std::ssize(layout.spacer));
  return saturatingSum(saturatingSum(frame, layout.lineDigits()), spacers);
}

std::int64_t hex_dump::size(std::int64_t byteCount, const Layout& layout) noexcept {
  return saturatingProduct(lineCount(byteCount, layout), lineSize(layout));
}

void hex_dump::write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
#ifdef WIDE_AVX2
  if (bytes.size() >= kWideFrom && cpu::hasAvx2()) return avx2::write(bytes, layout, text);
#endif
#ifdef WIDE_NEON
  if (bytes.size() >= kWideFrom && cpu::hasNeon()) return neon::write(bytes, layout, text);
#endif
  scalar::write(bytes, layout, text);
}

void hex_dump::scalar::write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  if (bytes.empty()) return;
  Cursor at{text.data(), layout.groupDigits, layout.lineGroups};
  if (layout.groupDigits % 2 != 0) {
    writeNibbles(bytes, layout, at);
  } else if (layout.groupDigits == 2 && layout.spacer.size() == 1) {
    writeSpacedBytes(bytes, layout, at);
  } else if (layout.groupDigits < kLargeGroup) {
    writeBytes(bytes, layout, at);
  } else {
    writeGroups(bytes, layout, at);
  }
  writeFill(layout, at, text);
}

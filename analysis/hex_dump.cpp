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

std::uint8_t* append(ByteView text, std::uint8_t* out) noexcept {
  if (text.size() == 1) {
    *out = text[0];
  } else if (!text.empty()) {
    std::memcpy(out, text.data(), text.size());
  }
  return out + text.size();
}

/// Repeats the first bytes of a text throughout it.
void repeat(std::uint8_t* text, std::int64_t unit, std::int64_t size) noexcept {
  constexpr std::int64_t kEnough = 16384;  // stays in the first-level cache
  std::int64_t step = unit;
  for (std::int64_t done = unit; done < size; done += step) {
    if (step < kEnough) step = done;
    std::memcpy(text + done, text, static_cast<std::size_t>(std::min(step, size - done)));
  }
}

/// Writes all that isn't a digit. Where digits go, fill of one character stands already.
void writeFrame(const Layout& layout, ByteSpan text) noexcept {
  const std::int64_t group = layout.groupDigits + std::ssize(layout.spacer);
  const std::int64_t groups = layout.lineGroups * group - std::ssize(layout.spacer);
  std::uint8_t* const firstGroup = append(layout.lineStart, text.data());
  std::memset(firstGroup, layout.filler.empty() ? '0' : layout.filler[0], static_cast<std::size_t>(layout.groupDigits));
  if (layout.lineGroups > 1) append(layout.spacer, firstGroup + layout.groupDigits);
  repeat(firstGroup, group, groups);
  append(layout.lineEnd, firstGroup + groups);
  repeat(text.data(), hex_dump::lineSize(layout), std::ssize(text));
}

/// Goes through the places of digits, so many of one group at once, and calls `place(index, text)` for each.
/// @param width  digits at once; divides the size of a group
/// @param index  of the first place, in the count of places; `end` is the one beyond the last
template <typename Place>
void forEachPlace(const Layout& layout, std::uint8_t* text, std::int64_t width, std::int64_t index, std::int64_t end,
                  Place place) noexcept {
  const std::int64_t groupPlaces = layout.groupDigits / width;
  const std::int64_t groupsBefore = index / groupPlaces;
  const std::int64_t linesBefore = groupsBefore / layout.lineGroups;
  const std::int64_t afterGroup = std::ssize(layout.spacer);
  const std::int64_t afterLine = saturatingSum(std::ssize(layout.lineEnd), std::ssize(layout.lineStart));
  std::int64_t placesLeft = groupPlaces - index % groupPlaces;
  std::int64_t groupsLeft = layout.lineGroups - groupsBefore % layout.lineGroups;
  std::uint8_t* out = text + std::ssize(layout.lineStart) + index * width + groupsBefore * afterGroup +
                      linesBefore * (afterLine - afterGroup);
  for (; index < end; ++index) {
    place(index, out);
    out += width;
    if (--placesLeft > 0) continue;
    placesLeft = groupPlaces;
    if (--groupsLeft > 0) {
      out += afterGroup;
    } else {
      groupsLeft = layout.lineGroups;
      out += afterLine;
    }
  }
}

void placeBytes(ByteView bytes, const Layout& layout, std::uint8_t* text) noexcept {
  forEachPlace(layout, text, 2, 0, std::ssize(bytes), [in = bytes.data()](std::int64_t index, std::uint8_t* out) {
    std::memcpy(out, kHexPairs[in[index]].data(), 2);
  });
}

void placeGroups(ByteView bytes, const Layout& layout, std::uint8_t* text) noexcept {
  const auto groupBytes = static_cast<std::size_t>(layout.groupDigits / 2);
  const auto groups = static_cast<std::int64_t>((bytes.size() + groupBytes - 1) / groupBytes);
  forEachPlace(layout, text, layout.groupDigits, 0, groups, [=](std::int64_t index, std::uint8_t* out) {
    const ByteView rest = bytes.subspan(static_cast<std::size_t>(index) * groupBytes);
    const ByteView group = rest.first(std::min(groupBytes, rest.size()));
    hex::encode(group, {out, 2 * group.size()});
  });
}

void placeNibbles(ByteView bytes, const Layout& layout, std::uint8_t* text) noexcept {
  forEachPlace(layout, text, 1, 0, 2 * std::ssize(bytes), [in = bytes.data()](std::int64_t index, std::uint8_t* out) {
    *out = kHexDigits[in[index / 2] >> (index % 2 == 0 ? 4 : 0) & 0x0F];
  });
}

void placeFill(std::int64_t byteCount, const Layout& layout, std::uint8_t* text) noexcept {
  auto fill = layout.filler.begin();
  forEachPlace(layout, text, 1, 2 * byteCount, hex_dump::digitCount(byteCount, layout),
               [&](std::int64_t, std::uint8_t* out) {
                 *out = *fill++;
                 if (fill == layout.filler.end()) fill = layout.filler.begin();
               });
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
  scalar::write(bytes, layout, text);
}

void hex_dump::scalar::write(ByteView bytes, const Layout& layout, ByteSpan text) noexcept {
  if (bytes.empty()) return;
  writeFrame(layout, text);
  if (layout.groupDigits % 2 != 0) {
    placeNibbles(bytes, layout, text.data());
  } else if (layout.groupDigits < kLargeGroup) {
    placeBytes(bytes, layout, text.data());
  } else {
    placeGroups(bytes, layout, text.data());
  }
  if (layout.filler.size() > 1) placeFill(std::ssize(bytes), layout, text.data());
}

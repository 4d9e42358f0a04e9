#include "markup/tag_removal.h"

#include <algorithm>
#include <cstring>

#include "wide/byte_word.h"

namespace {

[[nodiscard]] bool isBracketOrZero(std::uint8_t byte) noexcept { return (byte & ~2) == '<' || byte == 0; }

/// The first bracket or zero byte, or the end.
[[nodiscard]] const std::uint8_t* endOfRun(const std::uint8_t* at, const std::uint8_t* end) noexcept {
  while (end - at >= 8) {
    const std::uint64_t word = byte_word::load(at);
    if (byte_word::contains(word & ~(byte_word::kOnes * 2), '<') || byte_word::contains(word, 0)) break;
    at += 8;
  }
  while (at != end && !isBracketOrZero(*at)) ++at;
  return at;
}

/// Calls `visit(run, depth)` for each stretch of bytes that are neither bracket nor zero.
template <typename Visit>
void forEachRun(ByteView text, Visit visit) noexcept {
  std::int64_t depth = 0;
  const std::uint8_t* at = text.data();
  const std::uint8_t* const end = at + text.size();
  while (at != end) {
    const std::uint8_t* const stop = endOfRun(at, end);
    if (stop != at) visit(ByteView(at, stop), depth);
    at = stop;
    for (; at != end && isBracketOrZero(*at); ++at) depth += *at == '<' ? 1 : *at == '>' ? -1 : 0;
  }
}

/// Writes a pattern over and over; the room is a whole number of times as long.
void fill(ByteSpan room, ByteView pattern) noexcept {
  if (pattern.size() == 1) {
    std::memset(room.data(), pattern[0], room.size());
    return;
  }
  std::memcpy(room.data(), pattern.data(), pattern.size());
  for (std::size_t written = pattern.size(); written < room.size();) {
    const std::size_t more = std::min(written, room.size() - written);
    std::memcpy(room.data() + written, room.data(), more);
    written += more;
  }
}

}  // namespace

std::size_t tags::scalar::remove(ByteView text, ByteSpan kept) noexcept {
  std::uint8_t* out = kept.data();
  forEachRun(text, [&](ByteView run, std::int64_t depth) {
    if (depth != 0) return;
    std::memcpy(out, run.data(), run.size());
    out += run.size();
  });
  return static_cast<std::size_t>(out - kept.data());
}

std::int64_t tags::scalar::replacedSize(ByteView text, ByteView replacement) noexcept {
  std::int64_t size = 0;
  forEachRun(text, [&](ByteView run, std::int64_t depth) {
    size += std::int64_t{std::ssize(run)} * (depth == 0 ? 1 : std::ssize(replacement));
  });
  return size;
}

void tags::replace(ByteView text, ByteView replacement, ByteSpan replaced) noexcept {
  if (replaced.empty()) return;
  std::uint8_t* out = replaced.data();
  forEachRun(text, [&](ByteView run, std::int64_t depth) {
    if (depth == 0) {
      std::memcpy(out, run.data(), run.size());
      out += run.size();
    } else if (!replacement.empty()) {
      const ByteSpan room(out, run.size() * replacement.size());
      fill(room, replacement);
      out += room.size();
    }
  });
}

ByteView tags::untilZeroByte(ByteView replacement) noexcept {
  const auto zero = std::find(replacement.begin(), replacement.end(), std::uint8_t{0});
  return replacement.first(static_cast<std::size_t>(zero - replacement.begin()));
}

std::size_t tags::remove(ByteView text, ByteSpan kept) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::remove(text, kept);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::remove(text, kept);
#endif
  return scalar::remove(text, kept);
}

std::int64_t tags::replacedSize(ByteView text, ByteView replacement) noexcept {
#ifdef WIDE_AVX2
  if (cpu::hasAvx2()) return avx2::replacedSize(text, replacement);
#endif
#ifdef WIDE_NEON
  if (cpu::hasNeon()) return neon::replacedSize(text, replacement);
#endif
  return scalar::replacedSize(text, replacement);
}

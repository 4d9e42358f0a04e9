/// What the byte filters of the occurrence counters share: which two bytes of a pattern to look for, how a place where
/// both are found is checked, and when checking has become too dear.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "analysis/common_prefix.h"
#include "memory/byte_view.h"

namespace counting {

/// How common a byte is in the data of the world, 255 the commonest: text in western languages first, then the lead
/// and continuation bytes of UTF-8, then the rest of ASCII. Only speed depends on it.
inline constexpr std::array<std::uint8_t, 256> kCommonness = [] {
  constexpr std::string_view kCommonestFirst =
      " etaoinsrhldcumfpgwybv.,k\n0-1\"'=/2:;)(<>_x3j459867SATCEIMRPDNBLOFHGWUq\r\tzVK*Y{}[]J+#&!?|Q\\$%@XZ~^`";
  std::array<std::uint8_t, 256> commonness{};
  for (std::size_t byte = 0x80; byte < 0xC0; ++byte) commonness[byte] = 110;
  for (std::size_t byte = 0xC2; byte < 0xF0; ++byte) commonness[byte] = 90;
  commonness[0x00] = 255;  // binary data, and every other byte of UTF-16 text
  std::uint8_t rank = 254;
  for (const char c : kCommonestFirst) commonness[static_cast<std::uint8_t>(c)] = rank--;
  return commonness;
}();

/// The anchors are chosen among so many bytes at the start of a pattern.
inline constexpr std::size_t kConsidered = 32;

/// The offset of the rarest byte among the first ones of a pattern that isn't empty.
[[nodiscard]] inline std::size_t rarestByte(ByteView pattern) noexcept {
  // Commonness and offset in one number, so that the least one is found without branches.
  std::size_t rarest = ~std::size_t{0};
  const std::size_t length = std::min(pattern.size(), kConsidered);
  for (std::size_t i = 0; i < length; ++i) rarest = std::min(rarest, kCommonness[pattern[i]] * kConsidered + i);
  return rarest % kConsidered;
}

/// The offsets of two bytes of a pattern that are hopefully rare in the text.
struct Anchors {
  std::size_t first;
  std::size_t second;
};

/// Chooses the rarest byte and the rarest other one among the first bytes; where those are all equal, the first one
/// that differs from them.
/// @param pattern  of two bytes or more
[[nodiscard]] inline Anchors chooseAnchors(ByteView pattern) noexcept {
  constexpr std::size_t kNone = ~std::size_t{0};
  const std::size_t length = std::min(pattern.size(), kConsidered);
  const std::size_t first = rarestByte(pattern);
  std::size_t second = kNone;
  for (std::size_t i = 0; i < length; ++i) {
    second = std::min(second, pattern[i] == pattern[first] ? kNone : kCommonness[pattern[i]] * kConsidered + i);
  }
  if (second != kNone) return {first, second % kConsidered};
  const std::size_t equal = 1 + commonPrefix(pattern.data(), pattern.data() + 1, pattern.size() - 1);
  return {0, equal < pattern.size() ? equal : 1};
}

/// Compares the pattern with places of the text, and keeps account of what comparing in vain has cost.
class Verifier {
 public:
  explicit Verifier(ByteView pattern) noexcept : pattern_(pattern) {}

  /// True when the pattern occurs at `place`, where as many bytes are readable.
  [[nodiscard]] bool occursAt(const std::uint8_t* place) noexcept {
    std::size_t begin = 0;
    std::size_t step = kFirstStep;
    while (begin < pattern_.size()) {
      const std::size_t size = std::min(step, pattern_.size() - begin);
      if (std::memcmp(place + begin, pattern_.data() + begin, size) != 0) {
        wasted_ += begin + kFirstStep;
        return false;
      }
      begin += size;
      step = kLaterSteps;
    }
    return true;
  }

  /// True when so much has been compared in vain that a search which never goes back is faster.
  /// @param scanned  the number of bytes of the text that are done with
  [[nodiscard]] bool isTooDear(std::size_t scanned) const noexcept { return wasted_ / 4 > scanned + kAllowance; }

 private:
  static constexpr std::size_t kFirstStep = 16;
  static constexpr std::size_t kLaterSteps = 256;
  static constexpr std::size_t kAllowance = 1024;

  ByteView pattern_;
  std::size_t wasted_ = 0;
};

}  // namespace counting

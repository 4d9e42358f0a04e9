/// Escapes and line breaks of quoted-printable text, told apart 32 bytes at a time.
#pragma once

#include <cstdint>

namespace quoted_printable {

/// What stands in a vector of quoted-printable text, a bit for each byte.
struct Layout {
  std::uint32_t dropped;  ///< bytes that yield nothing
  std::uint32_t odd;      ///< starts of what needs a closer look, and of what may go on beyond the vector
};

/// @param marks   the positions of "="
/// @param digits  the positions of hexadecimal digits
constexpr Layout layoutOf(std::uint32_t marks, std::uint32_t returns, std::uint32_t feeds,
                          std::uint32_t digits) noexcept {
  const std::uint32_t escapes = marks & digits >> 1 & digits >> 2;
  const std::uint32_t softBreaks = marks & (returns | feeds) >> 1;
  const std::uint32_t secondFeeds = feeds & returns << 1;  // of CR LF
  const std::uint32_t loneFeeds = feeds & ~secondFeeds;
  const std::uint32_t reversedPairs = (loneFeeds & returns >> 1) | (marks & feeds >> 1 & returns >> 2);  // LF CR
  const std::uint32_t open = (marks & 1U << 30) | ((returns | loneFeeds) & 1U << 31);
  return {.dropped = escapes << 1 | escapes << 2 | softBreaks | softBreaks << 1 | secondFeeds,
          .odd = (marks & ~(escapes | softBreaks)) | reversedPairs | open};
}

}  // namespace quoted_printable

/// Outputs longer than a string can be, noticed before memory is spent on them.
#pragma once

#include <algorithm>

#include "memory/byte_view.h"
#include "memory/output_buffer.h"

namespace markup {

/// True when what an encoder writes for a text has at most `limit` bytes. The text is encoded once more for that,
/// piece by piece into one small buffer: only for outputs that might be too long.
/// @param encode  `bool(Utf32View, OutputBuffer&)`, false when memory is short; whoever encodes then finds that out
template <typename Encode>
[[nodiscard]] bool fitsIn(std::int64_t limit, Utf32View text, Encode encode) noexcept {
  constexpr std::size_t kPiece = 4096;
  OutputBuffer output;
  while (!text.empty()) {
    const Utf32View piece = text.first(std::min(kPiece, text.size()));
    if (!encode(piece, output)) return true;
    limit -= output.size();
    if (limit < 0) return false;
    text = text.subspan(piece.size());
  }
  return true;
}

}  // namespace markup

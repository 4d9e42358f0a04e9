/// Comparison of byte strings.
#include "analysis/comparison.h"

#include <algorithm>
#include <cstring>

namespace {

/// The first byte is zero and every byte equals its successor: the C library compares at full width.
bool isAllZero(ByteView bytes) noexcept {
  return bytes.empty() || (bytes[0] == 0 && std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0);
}

}  // namespace

int comparison::compareZeroExtended(ByteView a, ByteView b) noexcept {
  const std::size_t common = std::min(a.size(), b.size());
  const int order = common == 0 ? 0 : std::memcmp(a.data(), b.data(), common);
  if (order != 0) return order < 0 ? -1 : 1;
  if (a.size() == b.size()) return 0;
  if (!isAllZero(a.subspan(common))) return 1;
  return isAllZero(b.subspan(common)) ? 0 : -1;
}

/// The Two-Way search: critical factorization, then a scan that never goes back.
#include "analysis/counting_two_way.h"

#include <algorithm>
#include <cstring>

#include "analysis/common_prefix.h"

namespace counting {
namespace {

/// A suffix of the pattern by where it starts, and the smallest period of that suffix.
struct Suffix {
  std::size_t start;
  std::size_t period;
};

enum class Alphabet : bool { kAscending, kDescending };

/// The greatest suffix in the order of the alphabet.
Suffix maximalSuffix(ByteView pattern, Alphabet alphabet) noexcept {
  std::size_t start = 0;
  std::size_t candidate = 1;
  std::size_t matched = 0;
  std::size_t period = 1;
  while (candidate + matched < pattern.size()) {
    const std::uint8_t a = pattern[candidate + matched];
    const std::uint8_t b = pattern[start + matched];
    if (a == b) {
      if (++matched == period) {
        candidate += period;
        matched = 0;
      }
    } else if ((a < b) == (alphabet == Alphabet::kAscending)) {
      candidate += matched + 1;
      matched = 0;
      period = candidate - start;
    } else {
      start = candidate;
      candidate = start + 1;
      matched = 0;
      period = 1;
    }
  }
  return {start, period};
}

}  // namespace

// The names are the paper's: the critical factorization splits the pattern at l, p is its period, or a lower bound of
// it that is good enough to shift by; s is the length of the prefix that is known to match after a shift by the period.
std::int64_t countTwoWay(ByteView text, ByteView pattern) noexcept {
  const std::uint8_t* const x = pattern.data();
  const std::size_t n = pattern.size();
  const Suffix ascending = maximalSuffix(pattern, Alphabet::kAscending);
  const Suffix descending = maximalSuffix(pattern, Alphabet::kDescending);
  const auto [l, suffixPeriod] = ascending.start > descending.start ? ascending : descending;
  const bool isPeriodic = std::memcmp(x, x + suffixPeriod, l) == 0;
  const std::size_t p = isPeriodic ? suffixPeriod : std::max(l, n - l) + 1;

  std::int64_t count = 0;
  std::size_t s = 0;
  for (std::size_t pos = 0; pos + n <= text.size();) {
    const std::uint8_t* const t = text.data() + pos;
    const std::size_t right = std::max(l, s);
    const std::size_t matched = right + commonPrefix(x + right, t + right, n - right);
    if (matched < n) {
      pos += matched - l + 1;
      s = 0;
    } else if (s < l && std::memcmp(x + s, t + s, l - s) != 0) {
      pos += p;
      s = isPeriodic ? n - p : 0;
    } else {
      ++count;
      pos += n;
      s = 0;
    }
  }
  return count;
}

}  // namespace counting

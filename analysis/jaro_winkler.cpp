/// Jaro-Winkler distance: matching, and the arithmetic.
#include "analysis/jaro_winkler.h"

#include <algorithm>
#include <bit>

#include "analysis/code_point_map.h"
#include "memory/work_buffer.h"
#include "memory/wrapping.h"

namespace jaro_winkler {
namespace {

/// What matching finds: code points that both texts have at most a window apart.
struct Matches {
  std::size_t count;       ///< k of the similarity
  std::size_t outOfOrder;  ///< t: matches that differ when those of either text are paired in order
};

/// How far from its own position a code point may find its match.
std::size_t matchRange(Utf32View a, Utf32View b) noexcept {
  const std::size_t half = std::max(a.size(), b.size()) / 2;
  return half > 1 ? half - 1 : 0;
}

/// Matches texts that fit a word, their positions being bits of it.
WRAPPING_FUNCTION Matches matchWords(Utf32View a, Utf32View b) noexcept {
  CodePointMap<std::uint64_t> positions(a, b);
  for (std::size_t j = 0; j < b.size(); ++j) *positions.entry(b[j]) |= std::uint64_t{1} << j;
  const std::size_t range = matchRange(a, b);
  std::uint64_t window = (std::uint64_t{2} << range) - 1;
  std::uint64_t matchedA = 0;
  std::uint64_t matchedB = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const std::uint64_t candidates = positions[a[i]] & window & ~matchedB;
    matchedB |= candidates & (0 - candidates);
    matchedA |= static_cast<std::uint64_t>(candidates != 0 ? 1 : 0) << i;
    window = (window << 1) | (i < range ? 1 : 0);
  }
  Matches matches{static_cast<std::size_t>(std::popcount(matchedA)), 0};
  for (; matchedA != 0; matchedA &= matchedA - 1, matchedB &= matchedB - 1) {
    const bool differs = a[static_cast<std::size_t>(std::countr_zero(matchedA))] !=
                         b[static_cast<std::size_t>(std::countr_zero(matchedB))];
    matches.outOfOrder += differs ? 1 : 0;
  }
  return matches;
}

/// Matches texts of any length. A window only moves on, so of each code point the positions before it are done with
/// for good, and the first one in it is the head of a queue.
/// @param matchedA  as long as `a`
/// @param next      as long as `b`
WRAPPING_FUNCTION bool matchQueues(Utf32View a, Utf32View b, std::span<char32_t> matchedA,
                                   std::span<std::uint32_t> next, Matches& matches) noexcept {
  // Positions count from 1 here, for 0 stands for code points that `b` doesn't have.
  constexpr std::uint32_t kTaken = ~std::uint32_t{0};
  constexpr std::uint32_t kEnd = kTaken - 1;
  CodePointMap<std::uint32_t> heads(a, b);
  for (std::size_t j = b.size(); j > 0; --j) {
    std::uint32_t* const head = heads.entry(b[j - 1]);
    if (head == nullptr) return false;
    next[j - 1] = *head != 0 ? *head : kEnd;
    *head = static_cast<std::uint32_t>(j);
  }
  const std::size_t range = matchRange(a, b);
  std::size_t count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const std::size_t first = i - std::min(i, range);
    const std::size_t end = i + range + 1;
    std::uint32_t& head = heads[a[i]];
    while (head - 1 < first) head = next[head - 1];
    matchedA[count] = a[i];
    if (head - 1 >= end) continue;
    ++count;
    std::uint32_t& taken = next[head - 1];
    head = taken;
    taken = kTaken;
  }
  // The matched code points of `b`, gathered in the memory of the links, which are not needed any more.
  std::size_t gathered = 0;
  for (std::size_t j = 0; j < b.size(); ++j) {
    const bool isMatched = next[j] == kTaken;
    next[gathered] = b[j];
    gathered += isMatched ? 1 : 0;
  }
  matches = {count, 0};
  for (std::size_t q = 0; q < count; ++q) matches.outOfOrder += matchedA[q] != next[q] ? 1 : 0;
  return true;
}

double similarity(const Matches& matches, Utf32View a, Utf32View b) noexcept {
  if (matches.count == 0) return 0.0;
  const double k = static_cast<double>(matches.count);
  const double n = static_cast<double>(a.size());
  const double m = static_cast<double>(b.size());
  const std::size_t transpositions = matches.outOfOrder / 2;
  const double inOrder = static_cast<double>(matches.count - transpositions);
  return ((k / m + k / n) + inOrder / k) / 3.0;
}

/// Raises the similarity of texts that begin alike.
double boosted(double s, Utf32View a, Utf32View b) noexcept {
  constexpr double kThreshold = 0.7;
  constexpr double kScale = 0.1;
  constexpr std::size_t kLongestPrefix = 4;
  if (!(s > kThreshold)) return s;
  const std::size_t most = std::min({a.size(), b.size(), kLongestPrefix});
  std::size_t l = 0;
  while (l < most && a[l] == b[l]) ++l;
  return l > 0 ? s + (1.0 - s) * (static_cast<double>(l) * kScale) : s;
}

}  // namespace

Result distance(Utf32View a, Utf32View b) noexcept {
  if (a.empty() || b.empty()) return {a.size() == b.size() ? 0.0 : 1.0};
  Matches matches;
  if (std::max(a.size(), b.size()) <= 64) {
    matches = matchWords(a, b);
  } else {
    const WorkBuffer matchedA(std::int64_t{4} * std::ssize(a));
    if (!matchedA) return {0.0, Shortage::kFirstText};
    const WorkBuffer next(std::int64_t{4} * std::ssize(b));
    if (!next || !matchQueues(a, b, matchedA.units<char32_t>(), next.units<std::uint32_t>(), matches)) {
      return {0.0, Shortage::kSecondText};
    }
  }
  return {1.0 - boosted(similarity(matches, a, b), a, b)};
}

}  // namespace jaro_winkler

#include "stringhost/nearest.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <limits>
#include <numeric>
#include <tuple>

#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

std::string lower(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return result;
}

std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row[b.size()];
}

/// How many of a text's pairs of adjacent letters another one has too. Word order counts little that way, and what is
/// only left out, such as the ending that most names share, counts nothing.
std::size_t pairsIn(std::string_view text, std::string_view other) {
  std::size_t pairs = 0;
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    if (other.find(text.substr(at, 2)) != other.npos) ++pairs;
  }
  return pairs;
}

}  // namespace

bool isSameName(std::string_view a, std::string_view b) { return lower(a) == lower(b); }

std::string hintFor(std::string_view name, const std::vector<std::string>& candidates) {
  constexpr std::size_t kNotClose = std::numeric_limits<std::size_t>::max();
  const std::string wanted = lower(name);
  const std::string* best = nullptr;
  std::tuple<std::size_t, std::size_t, std::size_t> least;
  for (const std::string& candidate : candidates) {
    const std::string other = lower(candidate);
    const std::size_t edits = editDistance(wanted, other);
    const std::size_t allPairs = wanted.size() < 3 ? 0 : wanted.size() - 1;
    const std::size_t missing = allPairs - std::min(allPairs, pairsIn(wanted, other));
    const bool isClose = edits <= std::max<std::size_t>(2, other.size() / 4) && edits < wanted.size();
    const bool isAlike = allPairs > 0 && 5 * missing <= 2 * allPairs;
    if (!isClose && !isAlike) continue;
    const std::tuple badness{isClose ? edits : kNotClose, missing, other.size()};
    if (best == nullptr || badness < least) {
      best = &candidate;
      least = badness;
    }
  }
  return best != nullptr ? "did you mean " + *best + "?" : std::string();
}

void refuseUnknown(const std::string& what, const std::string& name, const std::vector<std::string>& candidates,
                   const std::string& otherwise) {
  const std::string hint = hintFor(name, candidates);
  throw UsageError("no such " + what + ": " + (name.empty() ? "''" : name), hint.empty() ? otherwise : hint);
}

}  // namespace stringhost

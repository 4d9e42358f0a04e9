#include "stringhost/nearest.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <numeric>

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

}  // namespace

bool isSameName(std::string_view a, std::string_view b) { return lower(a) == lower(b); }

std::string hintFor(std::string_view name, const std::vector<std::string>& candidates) {
  const std::string wanted = lower(name);
  const std::string* best = nullptr;
  std::size_t fewest = 0;
  for (const std::string& candidate : candidates) {
    const std::string other = lower(candidate);
    std::size_t edits = editDistance(wanted, other);
    // What was left off at one end counts little: most names end alike.
    if (wanted.size() >= 3 && (other.starts_with(wanted) || other.ends_with(wanted)))
      edits = std::min<std::size_t>(edits, 1);
    if (best == nullptr || edits < fewest) {
      best = &candidate;
      fewest = edits;
    }
  }
  const bool isNear = best != nullptr && fewest <= std::max<std::size_t>(2, best->size() / 4);
  return isNear ? "did you mean " + *best + "?" : std::string();
}

}  // namespace stringhost

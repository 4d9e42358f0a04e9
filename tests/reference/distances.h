/// The distances between texts as their definitions state them: plain loops over the full matrix and the full window.
#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace reference {

/// The optimal string alignment distance by dynamic programming.
inline std::int64_t levenshtein(std::u32string_view a, std::u32string_view b) {
  const std::size_t n = a.size();
  const std::size_t m = b.size();
  std::vector<std::vector<std::int64_t>> d(n + 1, std::vector<std::int64_t>(m + 1));
  for (std::size_t i = 0; i <= n; ++i) d[i][0] = static_cast<std::int64_t>(i);
  for (std::size_t j = 0; j <= m; ++j) d[0][j] = static_cast<std::int64_t>(j);
  for (std::size_t i = 1; i <= n; ++i) {
    for (std::size_t j = 1; j <= m; ++j) {
      const int cost = a[i - 1] == b[j - 1] ? 0 : 1;
      d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + cost});
      if (i >= 2 && j >= 2 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + cost);
      }
    }
  }
  return d[n][m];
}

inline double jaroSimilarity(std::u32string_view a, std::u32string_view b) {
  const std::size_t n = a.size();
  const std::size_t m = b.size();
  if (n == 0 || m == 0) return n == m ? 1.0 : 0.0;
  const std::size_t half = std::max(n, m) / 2;
  const std::size_t w = half > 1 ? half - 1 : 0;
  std::vector<char> flagsA(n);
  std::vector<char> flagsB(m);
  int k = 0;
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = i > w ? i - w : 0; j < std::min(i + w + 1, m); ++j) {
      if (flagsB[j] != 0 || a[i] != b[j]) continue;
      flagsA[i] = flagsB[j] = 1;
      ++k;
      break;
    }
  }
  if (k == 0) return 0.0;
  int t = 0;
  std::size_t p = 0;
  for (std::size_t i = 0; i < n; ++i) {
    if (flagsA[i] == 0) continue;
    while (flagsB[p] == 0) ++p;
    t += a[i] != b[p++] ? 1 : 0;
  }
  const double matches = k;
  return ((matches / static_cast<double>(m) + matches / static_cast<double>(n)) + (k - t / 2) / matches) / 3.0;
}

inline double jaroWinkler(std::u32string_view a, std::u32string_view b) {
  double s = jaroSimilarity(a, b);
  if (s > 0.7) {
    const std::size_t most = std::min({a.size(), b.size(), std::size_t{4}});
    int l = 0;
    while (static_cast<std::size_t>(l) < most && a[static_cast<std::size_t>(l)] == b[static_cast<std::size_t>(l)]) ++l;
    if (l > 0) s = s + (1.0 - s) * (l * 0.1);
  }
  return 1.0 - s;
}

}  // namespace reference

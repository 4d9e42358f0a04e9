#include "bench/report/baseline.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

#include "bench/run/statistics.h"

namespace {

/// What two runs of one build differ by. Short calls are a few cycles, where the place of the code shows.
constexpr double kNoise = 0.25;

/// A case's measure: the share of memcpy's speed, or where nothing is copied, calls in a microsecond. Of the quickest
/// rounds: whatever else the machine is busy with makes a round slower, never quicker.
double measureOf(const Result& result) {
  const Figure* const copy = result.find(Kind::kCopyInput);
  return (copy != nullptr ? copy->quickest : 1e3) / result.method().quickest;
}

double rounded(double value) { return std::stod(nlohmann::json(std::round(value * 1e4) / 1e4).dump()); }

}  // namespace

void writeBaseline(const std::filesystem::path& file, std::span<const Result> results) {
  nlohmann::json json = nlohmann::json::object();
  for (const Result& result : results) json[result.key()] = rounded(measureOf(result));
  std::ofstream(file) << json.dump(1) << '\n';
}

Comparison compareWith(const std::filesystem::path& file, std::span<const Result> results) {
  std::ifstream stream(file);
  const nlohmann::json json = nlohmann::json::parse(stream, nullptr, false);
  Comparison comparison;
  if (!json.is_object()) return comparison;
  std::vector<double> ratios;
  for (const Result& result : results) {
    const double before = json.value(result.key(), 0.0);
    if (before <= 0) continue;
    comparison.changes.push_back({result.key(), before, measureOf(result)});
    ratios.push_back(comparison.changes.back().now / before);
  }
  comparison.count = ratios.size();
  if (ratios.empty()) return comparison;
  comparison.overall = spreadOf(std::move(ratios)).median;
  std::erase_if(comparison.changes, [&](const Change& change) {
    return std::abs(std::log(change.now / change.before / comparison.overall)) < std::log1p(kNoise);
  });
  std::ranges::sort(comparison.changes, {}, [](const Change& change) { return change.now / change.before; });
  return comparison;
}

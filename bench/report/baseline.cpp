#include "bench/report/baseline.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

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

std::vector<Change> changesSince(const std::filesystem::path& file, std::span<const Result> results,
                                 std::size_t& compared) {
  std::ifstream stream(file);
  const nlohmann::json json = nlohmann::json::parse(stream, nullptr, false);
  std::vector<Change> changes;
  compared = 0;
  if (!json.is_object()) return changes;
  for (const Result& result : results) {
    const double before = json.value(result.key(), 0.0);
    if (before <= 0) continue;
    ++compared;
    const double now = measureOf(result);
    if (std::abs(std::log(now / before)) > std::log1p(kNoise)) changes.push_back({result.key(), before, now});
  }
  std::ranges::sort(changes, {}, [](const Change& change) { return change.now / change.before; });
  return changes;
}

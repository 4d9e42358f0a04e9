#include "bench/run/loading.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "bench/host/plugin_file.h"
#include "bench/run/in_child.h"

namespace {

constexpr int kLoads = 15;

long faultsSoFar() {
  rusage use{};
  getrusage(RUSAGE_SELF, &use);
  return use.ru_minflt + use.ru_majflt;
}

/// Adds up a line of the memory map over the mappings of a file.
void readMap(const std::filesystem::path& file, Loading& loading) {
  std::ifstream map("/proc/self/smaps");
  bool ours = false;
  for (std::string line; std::getline(map, line);) {
    const bool isMapping = line.find('-') < line.find(' ') && line.find(':') > line.find(' ');
    if (isMapping) ours = line.ends_with(file.string());
    if (!ours) continue;
    if (line.starts_with("Rss:")) loading.residentKiB += std::stol(line.substr(4));
    if (line.starts_with("Private_Dirty:")) loading.dirtyKiB += std::stol(line.substr(14));
  }
}

Loading load(const std::filesystem::path& plugin) {
  const long before = faultsSoFar();
  const auto start = std::chrono::steady_clock::now();
  lean::loadPlugin(plugin);
  const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
  Loading loading{time.count(), faultsSoFar() - before, 0, 0};
  readMap(plugin, loading);
  return loading;
}

}  // namespace

Loading measureLoading(const std::filesystem::path& plugin) {
  std::vector<Loading> loads;
  for (int i = 0; i < kLoads; ++i) {
    const std::optional<Loading> loading = inChild([&] { return load(plugin); });
    if (loading) loads.push_back(*loading);
  }
  if (loads.empty()) return {};
  std::ranges::sort(loads, {}, &Loading::microseconds);
  return loads[loads.size() / 2];
}

#include "bench/report/costs.h"

#include "bench/report/figures.h"

namespace {

std::string mebibytes(std::size_t bytes) { return std::to_string((bytes + (1 << 19)) >> 20) + " MiB"; }

std::string growthSection(const std::vector<Result>& results) {
  std::string text =
      "## Growth\n\nTime of a call on input made to hurt, and how often as long it takes for ten times as much, each "
      "time against the column before. 10× is in step with the input.\n\n"
      "| Job | Input | at first | 10× | 100× | 1000× |\n|---|---|--:|--:|--:|--:|\n";
  double before = 0;
  const std::string* corpus = nullptr;
  for (const Result& result : results) {
    const double time = result.method().nanoseconds;
    if (corpus == nullptr || *corpus != result.corpus || before == 0) {
      text += std::string(corpus != nullptr ? " |\n" : "") + "| " + result.job + " | " + result.corpus + " | " +
              figures::time(time);
    } else {
      text += " | " + figures::ratio(time / before);
    }
    corpus = &result.corpus;
    before = time;
  }
  return text + " |\n\n";
}

std::string memorySection(const std::vector<MemoryUse>& uses) {
  std::string text =
      "## Memory\n\nOne call on 64 MiB (distances: 10,000 characters each). Work is what the call took at its peak "
      "besides input and result, most of it the text that is handed to the host to build. Where the host converts that "
      "text, from UTF-16 or UTF-32, its own copy of it is in the figure as well.\n\n"
      "| Job | Input | given | handed over | result | work |\n|---|---|--:|--:|--:|--:|\n";
  for (const MemoryUse& use : uses) {
    const std::size_t work = use.peak > use.output ? use.peak - use.output : 0;
    text += "| " + use.job + " | " + use.corpus + " | " + mebibytes(use.input) + " | " + mebibytes(use.handed) + " | " +
            mebibytes(use.output) + " | " + mebibytes(work) + " |\n";
  }
  return text + "\n";
}

std::string loadingSection(const Loading& loading) {
  return "## Loading\n\nLoading the file and registering all methods takes " +
         figures::time(1e3 * loading.microseconds) + " with the file in the page cache and " +
         std::to_string(loading.faults) + " page faults, the loader's included. Afterwards " +
         std::to_string(loading.residentKiB) + " KiB of the plugin are mapped in, " + std::to_string(loading.dirtyKiB) +
         " KiB of them private to the process.\n";
}

}  // namespace

Costs measureCosts(const std::filesystem::path& plugin, const std::vector<Case>& cases) {
  Costs costs;
  costs.loading = measureLoading(plugin);
  costs.memory = measureMemory(plugin, cases);
  return costs;
}

std::string costsText(const Costs& costs) {
  if (costs.memory.empty()) return {};
  return growthSection(costs.growth) + memorySection(costs.memory) + loadingSection(costs.loading);
}

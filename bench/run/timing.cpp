#include "bench/run/timing.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "bench/run/statistics.h"

namespace {

/// Keeps the time of every repetition, by the number that a contender is registered under.
class Collector final : public benchmark::BenchmarkReporter {
 public:
  explicit Collector(std::size_t contenderCount) : times_(contenderCount) {}

  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      times_[std::stoul(run.run_name.function_name)].push_back(run.GetAdjustedCPUTime());
    }
  }

  [[nodiscard]] const std::vector<double>& times(std::size_t contender) const { return times_[contender]; }

 private:
  std::vector<std::vector<double>> times_;
};

}  // namespace

void setUpTiming() {
  // Random interleaving: in every round, each contender once, in a new order.
  char program[] = "bench";
  char interleave[] = "--benchmark_enable_random_interleaving=true";
  char* arguments[] = {program, interleave, nullptr};
  int count = 2;
  benchmark::Initialize(&count, arguments);

  // Large blocks are kept in the process: the system's pages would otherwise be what is timed at 4 MiB.
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 2'000'000'000);
}

Result timed(Bout& bout, Effort effort) {
  std::vector<Contender>& contenders = bout.contenders();
  benchmark::ClearRegisteredBenchmarks();
  for (std::size_t i = 0; i < contenders.size(); ++i) {
    const auto loop = [&run = contenders[i].run](benchmark::State& state) {
      for (auto _ : state) run();
    };
    benchmark::RegisterBenchmark(std::to_string(i).c_str(), loop)
        ->Repetitions(effort.rounds)
        ->MinTime(effort.secondsEach);
  }
  Collector collector(contenders.size());
  benchmark::RunSpecifiedBenchmarks(&collector);

  Result result = bout.result();
  for (std::size_t i = 0; i < contenders.size(); ++i) {
    const Spread spread = spreadOf(collector.times(i));
    Figure figure = contenders[i].figure;
    figure.nanoseconds = spread.median / static_cast<double>(bout.callCount());
    figure.quickest = spread.least / static_cast<double>(bout.callCount());
    figure.spread = spread.relative;
    result.figures.push_back(figure);
  }
  return result;
}

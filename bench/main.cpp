/// The benchmark suite: times the methods, their kernels and the peers, and writes what came out.
#include <cstdio>

#include "bench/host/lean_host.h"
#include "bench/host/plugin_file.h"
#include "bench/report/baseline.h"
#include "bench/report/costs.h"
#include "bench/report/figures.h"
#include "bench/report/json.h"
#include "bench/report/machine.h"
#include "bench/report/page.h"
#include "bench/run/tasks.h"
#include "host/globals.h"

namespace {

void checkPeers(const std::vector<Case>& cases) {
  std::vector<std::string> jobs;
  for (const Case& test : cases) jobs.push_back(test.job);
  for (const std::string& job : unknownJobs(jobs)) throw std::logic_error("a peer names an unknown job: " + job);
}

/// The bridge that hosts the peers is this program's own; it sees the same host as the plugin.
void connectBridge() {
  gResolver = [](const char* name) { return lean::resolve(name); };
  rbversion_rbversion = reinterpret_cast<service::GetRBVersion*>(lean::resolve("REALGetRBVersion"))();
}

void reportChanges(const std::filesystem::path& baseline, const std::vector<Result>& results) {
  const Comparison comparison = compareWith(baseline, results);
  std::printf("\nAgainst the figures of the last commit, relative to memcpy: %s over all %zu cases\n",
              figures::ratio(comparison.overall).c_str(), comparison.count);
  for (const Change& change : comparison.changes) {
    const double ratio = change.now / change.before;
    std::printf("  %-60s %s %s\n", change.key.c_str(), figures::ratio(ratio).c_str(),
                ratio < comparison.overall ? "SLOWER" : "faster");
  }
  if (comparison.changes.empty()) std::printf("  no case differs from that beyond noise\n");
}

void write(const Options& options, const std::vector<Result>& results, const Costs& costs) {
  if (!options.newBaseline.empty()) writeBaseline(options.newBaseline, results);
  if (!options.json.empty()) writeJson(options.json, results);
  if (!options.page.empty()) writePage(options.page, results, costsText(costs));
}

void run(const Options& options) {
  const std::vector<Case> cases = allCases();
  checkPeers(cases);
  // Memory and loading are measured first, in processes where nothing has happened yet.
  Costs costs;
  if (options.costs) costs = measureCosts(options.plugin, cases);

  setUpTiming();
  lean::loadPlugin(options.plugin);
  connectBridge();
  Terminal terminal;
  if (!missingPeers().empty()) terminal.note("Peers that are not here: " + missingPeers());
  if (options.explain) return explainAll(wanted(tasksOf(cases), options), terminal);
  const Field field{!options.quick, !options.quick};
  const std::vector<Result> results = runAll(wanted(tasksOf(cases), options), field, options.effort, terminal);
  if (options.costs) {
    const std::vector<Case> hurtful = growthCases();
    costs.growth = runAll(tasksOf(hurtful), {false, false}, options.effort, terminal);
    terminal.note("\n" + costsText(costs));
  }
  if (!options.quick) terminal.behind(results);
  if (!options.baseline.empty()) reportChanges(options.baseline, results);
  write(options, results, costs);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    run(parsed(argc, argv));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 1;
  }
}

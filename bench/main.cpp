/// The benchmark suite: times the methods, their kernels and the peers, and writes what came out.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <regex>

#include "bench/host/lean_host.h"
#include "bench/host/plugin_file.h"
#include "bench/report/baseline.h"
#include "bench/report/figures.h"
#include "bench/report/json.h"
#include "bench/report/machine.h"
#include "bench/report/page.h"
#include "bench/report/terminal.h"
#include "bench/run/timing.h"
#include "host/globals.h"

namespace {

struct Options {
  std::string filter = ".";
  std::string plugin;
  std::string json;
  std::string page;
  std::string baseline;
  std::string newBaseline;
  std::vector<std::size_t> sizes;
  Effort effort;
  bool quick = false;
};

/// A case at one size, not yet prepared.
struct Task {
  const Case* test;
  const Corpus* corpus;
  std::size_t size;

  [[nodiscard]] std::string name() const {
    return test->job + " | " + corpus->name + " | " + sizeText(size, test->unit);
  }
};

bool isWanted(const Options& options, const Case& test, std::size_t size) {
  const std::size_t second = test.sizes.size() > 1 ? test.sizes[test.sizes.size() - 2] : test.sizes[0];
  if (options.quick) return size == test.sizes.front() || size == second;
  return options.sizes.empty() || std::ranges::find(options.sizes, size) != options.sizes.end();
}

std::vector<Task> tasksFor(const Options& options, const std::vector<Case>& cases) {
  const std::regex filter(options.filter, std::regex::icase);
  std::vector<Task> tasks;
  for (const Case& test : cases) {
    for (const Corpus& corpus : test.corpora) {
      for (const std::size_t size : test.sizes) {
        const Task task{&test, &corpus, size};
        if (isWanted(options, test, size) && std::regex_search(test.group + " | " + task.name(), filter)) {
          tasks.push_back(task);
        }
      }
    }
  }
  return tasks;
}

void checkPeers(const std::vector<Case>& cases) {
  std::vector<std::string> jobs;
  for (const Case& test : cases) jobs.push_back(test.job);
  for (const std::string& job : unknownJobs(jobs)) throw std::logic_error("a peer names an unknown job: " + job);
}

std::vector<Result> runAll(const std::vector<Task>& tasks, const Options& options, Terminal& terminal) {
  std::vector<Result> results;
  std::string missingJob;
  terminal.begin(tasks.size());
  for (const Task& task : tasks) {
    if (task.test->job == missingJob) continue;
    terminal.working(task.name());
    if (lean::findMethod(task.test->method, task.test->parameterCount) == nullptr) {
      missingJob = task.test->job;
      terminal.note("\n" + task.test->job + ": the plugin has no " + task.test->method);
      continue;
    }
    Bout bout(*task.test, *task.corpus, task.size, Field{!options.quick, !options.quick});
    for (const std::string& peer : bout.unexplained())
      terminal.note("  answers otherwise, and nothing says how: " + peer);
    results.push_back(timed(bout, options.effort));
    terminal.row(results.back());
  }
  return results;
}

void reportChanges(const Options& options, const std::vector<Result>& results) {
  std::size_t compared = 0;
  const std::vector<Change> changes = changesSince(options.baseline, results, compared);
  std::printf("\nAgainst the figures of the last commit (%zu cases, relative to memcpy):\n", compared);
  for (const Change& change : changes) {
    std::printf("  %-60s %s %s\n", change.key.c_str(), figures::ratio(change.now / change.before).c_str(),
                change.now < change.before ? "SLOWER" : "faster");
  }
  if (changes.empty()) std::printf("  nothing changed beyond noise\n");
}

Options parsed(int argc, char** argv) {
  Options options;
  CLI::App app{"Times the plugin's methods against their peers."};
  app.add_option("filter", options.filter, "only cases that this matches, for example \"hex|URL.*64 KiB\"");
  app.add_option("--plugin", options.plugin, "the plugin file; the one of this build otherwise");
  app.add_option("--json", options.json, "write all figures here");
  app.add_option("--page", options.page, "write speed.md and its charts into this folder");
  app.add_option("--baseline", options.baseline, "compare with these figures");
  app.add_option("--new-baseline", options.newBaseline, "write figures to compare with");
  app.add_option("--size", options.sizes, "only these sizes");
  app.add_option("--rounds", options.effort.rounds, "rounds of all contenders");
  app.add_option("--seconds", options.effort.secondsEach, "of each contender in a round, at least");
  app.add_flag("--quick", options.quick, "no peers, two sizes");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    std::exit(app.exit(error));
  }
  return options;
}

void run(const Options& options) {
  const std::vector<Case> cases = allCases();
  checkPeers(cases);
  setUpTiming();
  lean::loadPlugin(options.plugin.empty() ? lean::defaultPluginFile() : std::filesystem::path(options.plugin));
  // The bridge that hosts the peers is this program's own; it sees the same host.
  gResolver = [](const char* name) { return lean::resolve(name); };
  rbversion_rbversion = reinterpret_cast<service::GetRBVersion*>(lean::resolve("REALGetRBVersion"))();

  Terminal terminal;
  if (!missingPeers().empty()) terminal.note("Peers that are not here: " + missingPeers());
  const std::vector<Result> results = runAll(tasksFor(options, cases), options, terminal);
  if (!options.quick) terminal.behind(results);
  if (!options.baseline.empty()) reportChanges(options, results);
  if (!options.newBaseline.empty()) writeBaseline(options.newBaseline, results);
  if (!options.json.empty()) writeJson(options.json, results);
  if (!options.page.empty()) writePage(options.page, results, "");
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

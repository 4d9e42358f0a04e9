#include "bench/run/tasks.h"

#include <algorithm>
#include <regex>

#include "bench/host/lean_host.h"

namespace {

bool isQuickSize(const Case& test, std::size_t size) {
  const std::size_t longest = test.sizes.size() > 1 ? test.sizes[test.sizes.size() - 2] : test.sizes[0];
  return size == test.sizes.front() || size == longest;
}

bool isWantedSize(const Options& options, const Task& task) {
  if (options.quick) return isQuickSize(*task.test, task.size);
  return options.sizes.empty() || std::ranges::find(options.sizes, task.size) != options.sizes.end();
}

}  // namespace

std::string Task::name() const { return test->job + " | " + corpus->name + " | " + sizeText(size, test->unit); }

std::vector<Task> tasksOf(const std::vector<Case>& cases) {
  std::vector<Task> tasks;
  for (const Case& test : cases) {
    for (const Corpus& corpus : test.corpora) {
      for (const std::size_t size : test.sizes) tasks.push_back({&test, &corpus, size});
    }
  }
  return tasks;
}

std::vector<Task> wanted(std::vector<Task> tasks, const Options& options) {
  const std::regex filter(options.filter, std::regex::icase);
  std::erase_if(tasks, [&](const Task& task) {
    return !isWantedSize(options, task) || !std::regex_search(task.test->group + " | " + task.name(), filter);
  });
  return tasks;
}

void explainAll(const std::vector<Task>& tasks, Terminal& terminal) {
  for (const Task& task : tasks) {
    const Bout bout(*task.test, *task.corpus, task.size, {true, false});
    for (const std::string& difference : bout.differences()) terminal.note(task.name() + "\n    " + difference);
  }
}

std::vector<Result> runAll(const std::vector<Task>& tasks, Field field, Effort effort, Terminal& terminal) {
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
    Bout bout(*task.test, *task.corpus, task.size, field);
    for (const std::string& peer : bout.unexplained()) {
      terminal.note("  answers otherwise, and nothing says how: " + peer);
    }
    results.push_back(timed(bout, effort));
    terminal.row(results.back());
  }
  return results;
}

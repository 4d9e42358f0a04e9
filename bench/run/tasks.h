/// The cases at their sizes, one after the other.
#pragma once

#include <vector>

#include "bench/options.h"
#include "bench/report/terminal.h"

/// A case at one size, not yet prepared. Refers to the table of cases.
struct Task {
  const Case* test;
  const Corpus* corpus;
  std::size_t size;

  [[nodiscard]] std::string name() const;
};

/// Every case on every corpus at every size.
[[nodiscard]] std::vector<Task> tasksOf(const std::vector<Case>& cases);

/// Those of them that the options ask for.
[[nodiscard]] std::vector<Task> wanted(std::vector<Task> tasks, const Options& options);

/// Compares the answers only: says for every peer that differs where it does.
void explainAll(const std::vector<Task>& tasks, Terminal& terminal);

/// Times them all, each shown as soon as it is done. Methods that the plugin doesn't have are named.
[[nodiscard]] std::vector<Result> runAll(const std::vector<Task>& tasks, Field field, Effort effort,
                                         Terminal& terminal);

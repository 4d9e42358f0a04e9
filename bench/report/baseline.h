/// Figures kept in the repository: each case's share of memcpy's speed, which doesn't depend on the machine as much as
/// a time does.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "bench/run/result.h"

void writeBaseline(const std::filesystem::path& file, std::span<const Result> results);

struct Change {
  std::string key;
  double before;
  double now;
};

struct Comparison {
  std::size_t count = 0;        ///< of cases that both have
  double overall = 1;           ///< the middle change of all: a busier machine, or a change that touches everything
  std::vector<Change> changes;  ///< the cases that differ clearly from that, the worst first
};

[[nodiscard]] Comparison compareWith(const std::filesystem::path& file, std::span<const Result> results);

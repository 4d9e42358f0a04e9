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

/// The cases that became clearly slower or faster than the baseline says, the worst first.
/// @param compared  receives how many cases both have
[[nodiscard]] std::vector<Change> changesSince(const std::filesystem::path& file, std::span<const Result> results,
                                               std::size_t& compared);

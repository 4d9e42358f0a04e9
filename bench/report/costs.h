/// What calls cost besides the time of one: how that grows, memory, and the loading of the plugin.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/run/loading.h"
#include "bench/run/memory.h"
#include "bench/run/result.h"

struct Costs {
  std::vector<Result> growth;  ///< of each case, sizes ten times apart in ascending order
  std::vector<MemoryUse> memory;
  Loading loading{};
};

/// Memory and loading. Has to be asked before the plugin is loaded here.
[[nodiscard]] Costs measureCosts(const std::filesystem::path& plugin, const std::vector<Case>& cases);

/// All of it as Markdown, which a terminal shows well enough; empty where nothing was measured.
[[nodiscard]] std::string costsText(const Costs& costs);

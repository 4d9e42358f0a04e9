/// How much memory a call takes at its peak, at 64 MiB of input.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/cases/case.h"

struct MemoryUse {
  std::string job;
  std::string corpus;
  std::size_t input;   ///< bytes; the host's own converted forms not counted
  std::size_t output;  ///< bytes of the result
  std::size_t peak;    ///< bytes that the call added at most, the result among them
  std::size_t handed;  ///< bytes of text that the host was given to build; it keeps a copy while it converts
};

/// Measures each job once, each call in a process of its own. Has to be asked before the plugin is loaded here.
[[nodiscard]] std::vector<MemoryUse> measureMemory(const std::filesystem::path& plugin, const std::vector<Case>& cases);

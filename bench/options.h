/// The command line.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/run/timing.h"

struct Options {
  std::string filter = ".";
  std::filesystem::path plugin;
  std::string json;
  std::string page;
  std::string baseline;
  std::string newBaseline;
  std::vector<std::size_t> sizes;
  Effort effort;
  bool quick = false;
  bool costs = false;
  bool explain = false;
};

/// Ends the program where the command line asks for help or is wrong.
[[nodiscard]] Options parsed(int argc, char** argv);

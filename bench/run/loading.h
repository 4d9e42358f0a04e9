/// What loading the plugin and registering its methods costs.
#pragma once

#include <filesystem>

struct Loading {
  double microseconds;  ///< from opening the file to the last registration, the file in the page cache
  long faults;          ///< pages that had to be brought in for it, those of the loader included
  long residentKiB;     ///< of the plugin's file that are mapped in afterwards
  long dirtyKiB;        ///< of those, pages of this process alone
};

/// The median of several loads, each in a process of its own. Has to be asked before the plugin is loaded here.
[[nodiscard]] Loading measureLoading(const std::filesystem::path& plugin);

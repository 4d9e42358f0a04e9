/// A plugin file, loaded: the other part of the stand-in host that depends on the platform.
#pragma once

#include <filesystem>

#include "host/records.h"

namespace standin {

class PluginLibrary {
 public:
  enum class How {
    kInPlace,    ///< the file itself; the system may share it with others who loaded it
    kFreshCopy,  ///< a temporary copy, so that all of its variables are at their initial values
  };

  /// Throws `std::runtime_error` where the file is missing, no library of this platform, or cut short.
  PluginLibrary(const std::filesystem::path& file, How how);
  ~PluginLibrary();
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  /// An exported function. Throws `std::runtime_error` where there is none of that name.
  [[nodiscard]] HostEntry function(const char* name) const;

 private:
  void* handle_ = nullptr;
  std::filesystem::path file_;
  std::filesystem::path copy_;  ///< to be deleted in the end, where it could not be before
};

}  // namespace standin

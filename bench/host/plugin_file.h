/// The plugin as a host gets it: a library file with one export.
#pragma once

#include <filesystem>

namespace lean {

/// Where the plugin of this build lies: in the build folder, above the program's own.
[[nodiscard]] std::filesystem::path defaultPluginFile();

/// Loads the file and lets it register its methods. Throws `std::runtime_error` where that fails.
void loadPlugin(const std::filesystem::path& file);

}  // namespace lean

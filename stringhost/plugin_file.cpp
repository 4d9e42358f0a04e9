#include "stringhost/plugin_file.h"

#include <string>
#include <system_error>

#include "stringhost/executable.h"
#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

namespace fs = std::filesystem;

/// The plugin built, unpacked or installed beside this program.
fs::path neighbour() {
  const fs::path name = PLUGIN_FILE_NAME;
  const fs::path folder = executableFolder();
  for (const fs::path& candidate : {folder / name, folder.parent_path() / name, folder / PLUGIN_FOLDER / name}) {
    std::error_code failure;
    if (fs::is_regular_file(candidate, failure)) return candidate;
  }
  throw UsageError("no " + name.string() + " beside this program", "name a plugin with --plugin FILE");
}

}  // namespace

fs::path pluginFile(const CommandLine& line) {
  return line.plugin ? fs::path(std::u8string(line.plugin->begin(), line.plugin->end())) : neighbour();
}

}  // namespace stringhost

#include "stringhost/plugin_file.h"

#include <string>
#include <system_error>

#include "stringhost/usage_error.h"

#if defined(_WIN32)
#include <windows.h>
#elif defined(__APPLE__)
#include <cstdint>
#include <mach-o/dyld.h>
#endif

namespace stringhost {
namespace {

namespace fs = std::filesystem;

/// The folder of the running program's file; empty where the system doesn't tell.
fs::path executableFolder() {
#if defined(_WIN32)
  wchar_t path[32768];
  const DWORD length = GetModuleFileNameW(nullptr, path, 32768);
  return fs::path(path, path + length).parent_path();
#elif defined(__APPLE__)
  std::uint32_t size = 0;
  _NSGetExecutablePath(nullptr, &size);
  std::string path(size, '\0');
  std::error_code failure;
  if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
  return fs::canonical(path.c_str(), failure).parent_path();
#else
  std::error_code failure;
  return fs::read_symlink("/proc/self/exe", failure).parent_path();
#endif
}

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

#include "stringhost/executable.h"

#include <system_error>

#if defined(_WIN32)
#include <windows.h>
#elif defined(__APPLE__)
#include <cstdint>
#include <mach-o/dyld.h>
#include <string>
#endif

namespace stringhost {

std::filesystem::path executableFolder() {
#if defined(_WIN32)
  wchar_t path[32768];
  const DWORD length = GetModuleFileNameW(nullptr, path, 32768);
  return std::filesystem::path(path, path + length).parent_path();
#elif defined(__APPLE__)
  std::uint32_t size = 0;
  _NSGetExecutablePath(nullptr, &size);
  std::string path(size, '\0');
  std::error_code failure;
  if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
  return std::filesystem::canonical(path.c_str(), failure).parent_path();
#else
  std::error_code failure;
  return std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
#endif
}

}  // namespace stringhost

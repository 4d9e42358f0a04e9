#include "stringhost/executable.h"

#include <system_error>

#ifdef _WIN32
#include <windows.h>
#endif

namespace stringhost {

std::filesystem::path executableFolder() {
#ifdef _WIN32
  wchar_t path[32768];
  const DWORD length = GetModuleFileNameW(nullptr, path, 32768);
  return std::filesystem::path(path, path + length).parent_path();
#else
  std::error_code failure;
  return std::filesystem::read_symlink("/proc/self/exe", failure).parent_path();
#endif
}

}  // namespace stringhost

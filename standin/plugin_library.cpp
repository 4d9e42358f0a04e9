#include "standin/plugin_library.h"

#include <atomic>
#include <stdexcept>
#include <string>
#include <system_error>

#include "standin/library_file.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#include <unistd.h>
#endif

namespace standin {
namespace {

namespace fs = std::filesystem;

#if defined(_WIN32)

constexpr bool kLoadedFilesCanBeDeleted = false;

unsigned long processId() { return GetCurrentProcessId(); }

void* open(const fs::path& file, std::string& error) {
  HMODULE module = LoadLibraryW(file.wstring().c_str());
  if (module == nullptr) error = std::system_category().message(static_cast<int>(GetLastError()));
  return module;
}

void* find(void* handle, const char* name) {
  void* address = nullptr;
  const FARPROC function = GetProcAddress(static_cast<HMODULE>(handle), name);
  static_assert(sizeof address == sizeof function);
  __builtin_memcpy(&address, &function, sizeof address);
  return address;
}

void close(void* handle) { FreeLibrary(static_cast<HMODULE>(handle)); }

#else

constexpr bool kLoadedFilesCanBeDeleted = true;

unsigned long processId() { return static_cast<unsigned long>(getpid()); }

void* open(const fs::path& file, std::string& error) {
  const std::string path = fs::absolute(file).string();
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) error = dlerror();
  if (error.starts_with(path + ": ")) error.erase(0, path.size() + 2);  // the caller names the file
  return handle;
}

void* find(void* handle, const char* name) { return dlsym(handle, name); }

void close(void* handle) { dlclose(handle); }

#endif

/// A name nobody else in the temporary folder has.
fs::path freshName(const fs::path& file) {
  static std::atomic<unsigned> count{0};
  const std::string stem = file.stem().string() + "-" + std::to_string(processId()) + "-" + std::to_string(count++);
  return fs::temp_directory_path() / (stem + file.extension().string());
}

}  // namespace

PluginLibrary::PluginLibrary(const fs::path& file, How how) : file_(file) {
  try {
    checkLibraryFile(file);
  } catch (const std::runtime_error& reason) {
    throw std::runtime_error(file.string() + ": " + reason.what());
  }
  fs::path loaded = file;
  if (how == How::kFreshCopy) {
    loaded = copy_ = freshName(file);
    fs::copy_file(file, copy_);
  }
  std::string error;
  std::error_code failure;
  handle_ = open(loaded, error);
  if (!copy_.empty() && (kLoadedFilesCanBeDeleted || handle_ == nullptr)) fs::remove(copy_, failure);
  if (handle_ == nullptr) throw std::runtime_error(file.string() + ": " + error);
}

PluginLibrary::~PluginLibrary() {
  close(handle_);
  std::error_code failure;
  if (!copy_.empty()) fs::remove(copy_, failure);
}

HostEntry PluginLibrary::function(const char* name) const {
  void* const address = find(handle_, name);
  if (address == nullptr) throw std::runtime_error(file_.string() + ": exports no " + name);
  HostEntry entry;
  static_assert(sizeof entry == sizeof address);
  __builtin_memcpy(&entry, &address, sizeof entry);
  return entry;
}

}  // namespace standin

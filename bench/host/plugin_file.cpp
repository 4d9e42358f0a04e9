#include "bench/host/plugin_file.h"

#include <dlfcn.h>
#include <stdexcept>

#include "bench/host/lean_host.h"

std::filesystem::path lean::defaultPluginFile() {
  return std::filesystem::canonical("/proc/self/exe").parent_path().parent_path() / "StringPlugin.so";
}

void lean::loadPlugin(const std::filesystem::path& file) {
  void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw std::runtime_error(dlerror());
  const auto pluginMain = reinterpret_cast<void (*)(HostResolver)>(dlsym(library, "REALPluginMain"));
  if (pluginMain == nullptr) throw std::runtime_error(file.string() + " has no REALPluginMain");
  pluginMain(resolve);
  if (registeredMethods().empty()) throw std::runtime_error(file.string() + " registered no method");
}

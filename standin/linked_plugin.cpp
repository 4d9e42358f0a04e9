/// The plugin where there are no libraries to load: linked into the same program, and fresh when the program is.
#include <cstring>
#include <stdexcept>
#include <string>

#include "standin/plugin_library.h"

extern "C" void REALPluginMain(HostResolver resolver) noexcept;

namespace standin {

PluginLibrary::PluginLibrary(const std::filesystem::path& file, How /*how*/) : file_(file) {
  if (file != "StringPlugin") throw std::runtime_error(file.string() + ": no such file");
}

PluginLibrary::~PluginLibrary() = default;

HostEntry PluginLibrary::function(const char* name) const {
  if (std::strcmp(name, "REALPluginMain") == 0) return reinterpret_cast<HostEntry>(&REALPluginMain);
  throw std::runtime_error(file_.string() + ": exports no " + name);
}

}  // namespace standin

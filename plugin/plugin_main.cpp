#include "plugin/plugin_main.h"

#include <cstdlib>
#include <ctime>

#include "host/services.h"
#include "host/versions.h"
#include "plugin/registration.h"

namespace {

void readHostVersion() noexcept {
  const auto getVersion = reinterpret_cast<service::GetRBVersion*>(lookUpService("REALGetRBVersion"));
  if (getVersion != nullptr) rbversion_rbversion = getVersion();
}

std::int32_t controlVersion() noexcept {
  if (hostIsAtLeast(2013.04)) return 13;
  if (hostIsAtLeast(2013.03)) return 12;
  if (hostIsAtLeast(2013.0)) return 11;
  if (hostIsAtLeast(2012.0)) return 10;
  return 9;
}

void declareControlVersion() noexcept {
  CurrentREALControlVersion = controlVersion();
  const auto declare = reinterpret_cast<service::RegisterPluginVersion*>(lookUpService("RegisterPluginVersion"));
  if (declare != nullptr) declare(CurrentREALControlVersion);
}

/// Seeds `rand` in built applications. In the development environment the sequence stays the library's default.
void seedRandomGenerator() noexcept {
  if (REALinRuntime() != 0) std::srand(static_cast<unsigned>(std::time(nullptr)));
}

}  // namespace

void REALPluginMain(HostResolver resolver) noexcept {
  gResolver = resolver;
  readHostVersion();
  declareControlVersion();
  gpartname = "String";
  seedRandomGenerator();
  registerMethods();
}

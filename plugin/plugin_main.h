/// The library's only export.
#pragma once

#include "host/records.h"

/// Called once by the host when it has loaded the library, before any method.
/// @param resolver  finds the host's services by name
extern "C" __attribute__((visibility("default"))) void REALPluginMain(HostResolver resolver) noexcept;

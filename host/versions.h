/// Host versions from which on something is done differently. Each is met by any version at least as high.
#pragma once

#include "host/globals.h"

/// ASCII, UTF-8 and UTF-16 forms come from "PluginGetStringData"; UTF-16 is built in one step.
inline constexpr double kVersionStringData = 2012.0;

/// Methods are registered as a module; UTF-32 comes from "PluginGetStringData" and is built by the host.
inline constexpr double kVersionModules = 2013.0;

/// The UTF-8 form is always fetched from the host.
inline constexpr double kVersionHostUTF8 = 2015.03;

/// Strings are read through services; below it, from the host's string structure.
inline constexpr double kVersionStringServices = 2016.0;

/// Methods are registered one by one again.
inline constexpr double kVersionNoModules = 3000.0;

[[nodiscard]] inline bool hostIsAtLeast(double version) noexcept { return rbversion_rbversion >= version; }

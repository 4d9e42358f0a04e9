/// The one list of the methods that the plugin offers.
#pragma once

#include <span>

#include "host/records.h"

/// Flag of every entry of the table.
inline constexpr std::uint32_t kMethodFlag = 4;

/// Flag that a method has in addition when it is registered as part of a module.
inline constexpr std::uint32_t kModuleMethodFlag = 16;

/// All methods, in the order in which they are registered.
extern const std::span<const MethodEntry> globalMethods;

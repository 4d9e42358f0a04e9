/// A host with nothing but what its plugin needs: version 2023.1, the services such a host is asked for, no checks.
/// What its own share of a call costs is measured like everything else.
#pragma once

#include <span>
#include <string_view>

#include "host/records.h"

namespace lean {

/// The resolver to hand to `REALPluginMain`.
[[nodiscard]] HostEntry resolve(const char* name) noexcept;

/// The methods that were registered; empty before.
[[nodiscard]] std::span<const MethodEntry> registeredMethods() noexcept;

/// Finds a method by its name and number of parameters. Null where it isn't registered.
[[nodiscard]] const MethodEntry* findMethod(std::string_view name, std::size_t parameterCount) noexcept;

/// How many exceptions have been raised so far; a timed call raises none.
[[nodiscard]] int exceptionsRaised() noexcept;

}  // namespace lean

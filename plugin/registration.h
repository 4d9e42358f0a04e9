/// Making the methods known to the host.
#pragma once

#include <cstdint>

/// The generation of the host's structures that the plugin declares: 9 to 13, by the host's version.
extern std::int32_t CurrentREALControlVersion;

/// The first half of the module's name.
extern const char* gpartname;

/// Registers all methods: as the module "StringGlobalsZQV" on hosts from 2013.0 to below 3000.0, else one by one.
/// Registers nothing where memory is short or the host lacks the service. What the host is given stays allocated.
void registerMethods() noexcept;

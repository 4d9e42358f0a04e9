/// The services the host offers to a plugin.
#pragma once

#include "host/records.h"
#include "standin/service_names.h"

namespace standin {

/// The entry point of a service, of its type in `service`, whether a host offers it or not.
[[nodiscard]] HostEntry serviceEntry(Service service) noexcept;

}  // namespace standin

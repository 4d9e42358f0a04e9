/// The commands that call a method.
#pragma once

#include "stringhost/command_line.h"
#include "stringhost/streams.h"

namespace stringhost {

/// Calls a method, as often as asked, and prints its result. Throws `UsageError` for a method that isn't there and
/// arguments that don't fit.
/// @return the exit status
int call(const CommandLine& line, const Streams& streams);

/// Calls a method once and prints the call as the host sees it; otherwise like `call`.
int explainCall(const CommandLine& line, const Streams& streams);

}  // namespace stringhost

/// A call as the host sees it.
#pragma once

#include <iosfwd>
#include <vector>

#include "standin/session.h"

namespace stringhost {

/// Prints the arguments, the services in the order they were called, the forms asked for, the references taken and
/// dropped, and the result.
/// @param arguments  as given; those left out have the declared defaults
void explain(std::ostream& out, const standin::Method& method, const std::vector<standin::Argument>& arguments,
             const standin::Outcome& outcome, bool asJson, bool terminal);

}  // namespace stringhost

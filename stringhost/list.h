/// The list of the methods a plugin registered.
#pragma once

#include <iosfwd>
#include <string>

#include "standin/session.h"

namespace stringhost {

/// Prints the methods whose names match, a declaration each line, or all of them as one JSON array.
/// @param pattern  a part of the name, or with "*" and "?" the whole of it; case doesn't matter; empty for all
/// @return whether there were any
bool list(std::ostream& out, const standin::Session& session, const std::string& pattern, bool asJson);

}  // namespace stringhost

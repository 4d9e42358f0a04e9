/// The list of the methods a plugin registered.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "standin/session.h"

namespace stringhost {

/// The names, one for each overload.
[[nodiscard]] std::vector<std::string> namesOf(const standin::Session& session);

/// Prints the methods whose names match, a declaration each line, or all of them as one JSON array.
/// @param pattern  a part of the name, or with "*" and "?" the whole of it; case doesn't matter; empty for all
/// @return whether there were any
bool list(std::ostream& out, const standin::Session& session, const std::string& pattern, bool asJson);

}  // namespace stringhost

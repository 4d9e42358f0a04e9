/// What the reference says about a method, shown on a terminal.
#pragma once

#include <iosfwd>
#include <string>

namespace stringhost {

/// Whether colour is welcome where there is a terminal: not with NO_COLOR set to something, nor on a dumb terminal.
[[nodiscard]] bool wantsColour();

/// Prints the entry of a method, whatever the case of its name; as JSON, without a name, those of all methods. Throws
/// `UsageError` for an unknown one.
void showReference(std::ostream& out, const std::string& method, bool asJson, bool terminal);

}  // namespace stringhost

/// A tour of the plugin: a few real calls.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace stringhost {

/// A stop of the tour: what there is to see, and the command line that shows it.
struct Stop {
  const char* remark;
  const char* command;
};

[[nodiscard]] const std::vector<Stop>& tourStops();

/// Prints and runs one stop after the other.
/// @param globals  options to be put in front of each command's own
/// @return the first exit status other than 0
int tour(const std::vector<std::string>& globals, std::ostream& out, std::ostream& err);

}  // namespace stringhost

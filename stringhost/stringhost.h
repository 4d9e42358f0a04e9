/// The command line of the stand-in host.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace stringhost {

/// Exit statuses.
enum Status {
  kDone = 0,
  kRaised = 1,      ///< the method raised an exception
  kUsage = 2,       ///< the command line makes no sense, or a file it names cannot be read
  kUnbalanced = 3,  ///< the plugin leaked, or broke another rule of the host
};

/// Runs one command line, in this process.
/// @param arguments  what follows the program's name, in UTF-8
/// @param in         what an argument "-" reads
/// @param terminal   whether a person reads `out`: results are then shown, not handed on byte for byte
/// @param watched    whether a person reads `err`: what takes long is then kept up to date in place
/// @param wrongArgument  gets the number of the method's argument that makes no sense, where it is one
/// @return the exit status
int run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
        bool terminal, bool watched = false, int* wrongArgument = nullptr);

}  // namespace stringhost

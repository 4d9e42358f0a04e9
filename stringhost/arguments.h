/// The arguments of a call, as they are written on the command line.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "host/encodings.h"
#include "standin/session.h"

namespace stringhost {

/// Where arguments come from, besides the command line itself.
struct Source {
  std::istream& in;       ///< what "-" reads, once
  TextEncoding encoding;  ///< of string arguments
};

/// Reads each argument by the type the method declares. Throws `UsageError`.
[[nodiscard]] std::vector<standin::Argument> parseArguments(const standin::Declaration& declaration,
                                                            const std::vector<std::string>& written,
                                                            const Source& source);

/// What the forms of an argument are, for the help.
extern const char* const kArgumentHelp;

}  // namespace stringhost

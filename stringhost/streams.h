/// Where a command reads and writes.
#pragma once

#include <cstdlib>
#include <iosfwd>
#include <string_view>

namespace stringhost {

/// Whether the environment calls the terminal one that knows no escape sequences.
inline bool isDumbTerminal() {
  const char* const kind = std::getenv("TERM");
  return kind != nullptr && std::string_view(kind) == "dumb";
}

struct Streams {
  std::istream& in;  ///< what an argument "-" reads
  std::ostream& out;
  std::ostream& err;
  bool terminal;  ///< whether a person reads `out`: results are then shown, not handed on byte for byte
  bool watched;   ///< whether a person reads `err`: what takes long is then kept up to date in place
};

}  // namespace stringhost

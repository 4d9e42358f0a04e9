/// Where a command reads and writes.
#pragma once

#include <iosfwd>

namespace stringhost {

struct Streams {
  std::istream& in;  ///< what an argument "-" reads
  std::ostream& out;
  std::ostream& err;
  bool terminal;  ///< whether a person reads `out`: results are then shown, not handed on byte for byte
  bool watched;   ///< whether a person reads `err`: what takes long is then kept up to date in place
};

}  // namespace stringhost

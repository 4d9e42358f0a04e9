/// What the figures were measured on.
#pragma once

#include <string>

struct Machine {
  std::string cpu;
  std::string compiler;
  std::string date;  ///< of today, as YYYY-MM-DD
};

[[nodiscard]] Machine thisMachine();

/// The peers that were not found when the suite was built; empty when all are there.
[[nodiscard]] std::string missingPeers();

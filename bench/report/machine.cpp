#include "bench/report/machine.h"

#include <ctime>
#include <fstream>

namespace {

std::string cpuName() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line; std::getline(file, line);) {
    const std::size_t colon = line.find(": ");
    if (line.starts_with("model name") && colon != line.npos) return line.substr(colon + 2);
  }
  return "unknown CPU";
}

std::string today() {
  const std::time_t now = std::time(nullptr);
  char text[16];
  std::strftime(text, sizeof text, "%Y-%m-%d", std::gmtime(&now));
  return text;
}

}  // namespace

Machine thisMachine() {
#if defined(__clang__)
  const std::string compiler = "clang " + std::to_string(__clang_major__);
#else
  const std::string compiler = "g++ " + std::to_string(__GNUC__);
#endif
  return {cpuName(), compiler, today()};
}

std::string missingPeers() { return MISSING_PEERS; }

/// How kernels take part: bare, without a host, the plain twin beside the one that the CPU gets.
#pragma once

#include <string_view>
#include <vector>

#include "bench/peers/peer.h"

/// Runs a kernel on operands. What it gives is kept from being optimised away by its caller.
using KernelFunction = std::int64_t (*)(const Operands& operands);

struct Kernel {
  const char* job;
  const char* name;  ///< "kernel", or "plain" for the twin without wide registers
  KernelFunction run;
};

class KernelLines {
 public:
  KernelLines(std::initializer_list<Kernel> kernels);
};

[[nodiscard]] std::vector<Kernel> kernelsFor(std::string_view job);

#include "bench/kernels/kernel.h"

#include <algorithm>
#include <iterator>

namespace {

std::vector<Kernel>& lines() {
  static std::vector<Kernel> kernels;
  return kernels;
}

}  // namespace

KernelLines::KernelLines(std::initializer_list<Kernel> kernels) { lines().insert(lines().end(), kernels); }

std::vector<Kernel> kernelsFor(std::string_view job) {
  std::vector<Kernel> kernels;
  std::ranges::copy_if(lines(), std::back_inserter(kernels), [&](const Kernel& kernel) { return kernel.job == job; });
  return kernels;
}

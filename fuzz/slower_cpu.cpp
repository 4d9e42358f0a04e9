/// Stands before what the CPU says of itself, so that a plugin runs the kernels of slower ones.
#include "wide/cpu.h"

#ifdef WIDE_AVX2

bool cpu::hasAvx2() noexcept { return OFFERED_AVX2; }

bool cpu::hasAvx512() noexcept { return false; }

#endif

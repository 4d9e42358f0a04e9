/// Stands before what the CPU says of itself, so that a plugin runs the kernels of slower ones.
#include "wide/cpu.h"

#ifdef WIDE_AVX2

unsigned cpu::askOffer() noexcept { return OFFERED_AVX2 && __builtin_cpu_supports("avx2") ? kAsked | kAvx2 : kAsked; }

#endif

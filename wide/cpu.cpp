#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include <cpuid.h>

namespace {

/// The register state the system saves on a task switch (extended control register 0).
unsigned savedState() noexcept {
  unsigned low = 0;
  unsigned high = 0;
  __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return low;
}

bool hasAll(unsigned offered, unsigned wanted) noexcept { return (offered & wanted) == wanted; }

unsigned offerOfCpu() noexcept {
  constexpr unsigned kSseAndAvxState = 0x06;
  constexpr unsigned kAvx512State = 0xE0;
  constexpr unsigned kPopcnt = 1U << 23;                                 // leaf 1, ECX
  constexpr unsigned kFeatures7 = (1U << 3) | (1U << 5) | (1U << 8);     // BMI1, AVX2, BMI2: leaf 7, EBX
  constexpr unsigned kWideSets7 = (1U << 16) | (1U << 30) | (1U << 31);  // AVX-512 F, BW, VL: leaf 7, EBX
  constexpr unsigned kVbmi2 = 1U << 6;                                   // leaf 7, ECX
  constexpr unsigned kLzcnt = 1U << 5;                                   // leaf 0x80000001, ECX
  unsigned a = 0;
  unsigned b = 0;
  unsigned c = 0;
  unsigned d = 0;
  if (__get_cpuid(1, &a, &b, &c, &d) == 0 || !hasAll(c, bit_OSXSAVE | kPopcnt)) return cpu::kAsked;
  const unsigned state = savedState();
  if (!hasAll(state, kSseAndAvxState)) return cpu::kAsked;
  if (__get_cpuid(0x8000'0001, &a, &b, &c, &d) == 0 || !hasAll(c, kLzcnt)) return cpu::kAsked;
  if (__get_cpuid_count(7, 0, &a, &b, &c, &d) == 0 || !hasAll(b, kFeatures7)) return cpu::kAsked;
  const bool isWider = hasAll(state, kAvx512State) && hasAll(b, kWideSets7) && hasAll(c, kVbmi2);
  return cpu::kAsked | cpu::kAvx2 | (isWider ? unsigned{cpu::kAvx512} : 0);
}

}  // namespace

unsigned cpu::askOffer() noexcept {
  const unsigned offer = offerOfCpu();
  knownOffer.store(offer, std::memory_order_relaxed);
  return offer;
}

#endif  // WIDE_AVX2

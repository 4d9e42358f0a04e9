#include "wide/cpu.h"

#ifdef WIDE_AVX2

#include <atomic>
#include <cpuid.h>

namespace {

enum class Answer : unsigned char { kNotAsked, kNo, kYes };

std::atomic<Answer> avx2Answer{Answer::kNotAsked};

/// The register state the system saves on a task switch (extended control register 0).
unsigned savedState() noexcept {
  unsigned low = 0;
  unsigned high = 0;
  __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return low;
}

Answer askCpu() noexcept {
  constexpr unsigned kSseAndAvxState = 0x6;
  constexpr unsigned kPopcnt = 1U << 23;                              // leaf 1, ECX
  constexpr unsigned kFeatures7 = (1U << 3) | (1U << 5) | (1U << 8);  // BMI1, AVX2, BMI2: leaf 7, EBX
  constexpr unsigned kLzcnt = 1U << 5;                                // leaf 0x80000001, ECX
  unsigned a = 0;
  unsigned b = 0;
  unsigned c = 0;
  unsigned d = 0;
  if (__get_cpuid(1, &a, &b, &c, &d) == 0) return Answer::kNo;
  if ((c & bit_OSXSAVE) == 0 || (c & kPopcnt) == 0) return Answer::kNo;
  if ((savedState() & kSseAndAvxState) != kSseAndAvxState) return Answer::kNo;
  if (__get_cpuid_count(7, 0, &a, &b, &c, &d) == 0 || (b & kFeatures7) != kFeatures7) return Answer::kNo;
  if (__get_cpuid(0x8000'0001, &a, &b, &c, &d) == 0 || (c & kLzcnt) == 0) return Answer::kNo;
  return Answer::kYes;
}

}  // namespace

bool cpu::hasAvx2() noexcept {
  Answer answer = avx2Answer.load(std::memory_order_relaxed);
  if (answer == Answer::kNotAsked) {
    answer = askCpu();
    avx2Answer.store(answer, std::memory_order_relaxed);
  }
  return answer == Answer::kYes;
}

#endif  // WIDE_AVX2

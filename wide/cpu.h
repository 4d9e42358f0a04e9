/// What the running CPU offers beyond the build's baseline.
#pragma once

#include <atomic>

#if defined(__x86_64__) || defined(__i386__)
/// Set where the build can hold AVX2 kernels. Whether they may run is `cpu::hasAvx2`.
#define WIDE_AVX2 1
/// Compiles one function for AVX2 and the bit instructions that came with it.
#define AVX2_FUNCTION __attribute__((target("avx2,bmi,bmi2,lzcnt,popcnt")))

/// Set where the build can hold AVX-512 kernels. Whether they may run is `cpu::hasAvx512`.
#define WIDE_AVX512 1
/// Compiles one function for AVX-512 on bytes, with its second set of byte manipulations (VBMI2).
#define AVX512_FUNCTION __attribute__((target("avx512f,avx512bw,avx512vl,avx512vbmi2,avx2,bmi,bmi2,lzcnt,popcnt")))
#endif

#if defined(__aarch64__) || defined(__ARM_NEON)
/// Set where the build can hold NEON kernels. Whether they may run is `cpu::hasNeon`.
#define WIDE_NEON 1
/// Compiles one function for NEON where the build's baseline has none, as with Debian's for 32 bits.
#define NEON_FUNCTION
#elif defined(__arm__) && __ARM_ARCH >= 7 && defined(__ARM_FP) && !defined(__clang__)
#define WIDE_NEON 1
#define NEON_FUNCTION __attribute__((target("fpu=neon")))
/// Set where NEON has to be asked for.
#define WIDE_NEON_IS_OPTIONAL 1
#endif

namespace cpu {

#if defined(WIDE_AVX2) || defined(WIDE_NEON_IS_OPTIONAL)
/// What the CPU offers, a bit each. Nothing is known before the first question.
enum Offer : unsigned { kUnknown = 0, kAsked = 1, kAvx2 = 2, kAvx512 = 4, kNeon = 8 };

/// The answer, once it is known.
inline constinit std::atomic<unsigned> knownOffer{kUnknown};

/// Asks the CPU and keeps the answer.
unsigned askOffer() noexcept;

[[nodiscard]] inline unsigned offer() noexcept {
  const unsigned known = knownOffer.load(std::memory_order_relaxed);
  return known != kUnknown ? known : askOffer();
}
#endif

#ifdef WIDE_AVX2
/// True when the CPU has AVX2, BMI1, BMI2, LZCNT and POPCNT and the system saves the wide registers.
[[nodiscard]] inline bool hasAvx2() noexcept { return (offer() & kAvx2) != 0; }

/// True when the CPU has all that and AVX-512 with its sets F, BW, VL and VBMI2.
[[nodiscard]] inline bool hasAvx512() noexcept { return (offer() & kAvx512) != 0; }
#endif

#ifdef WIDE_NEON_IS_OPTIONAL
/// True when the CPU has NEON.
[[nodiscard]] inline bool hasNeon() noexcept { return (offer() & kNeon) != 0; }
#elif defined(WIDE_NEON)
[[nodiscard]] constexpr bool hasNeon() noexcept { return true; }
#endif

}  // namespace cpu

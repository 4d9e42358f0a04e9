/// What the running CPU offers beyond the build's baseline.
#pragma once

#if defined(__x86_64__) || defined(__i386__)
/// Set where the build can hold AVX2 kernels. Whether they may run is `cpu::hasAvx2`.
#define WIDE_AVX2 1
/// Compiles one function for AVX2 and the bit instructions that came with it.
#define AVX2_FUNCTION __attribute__((target("avx2,bmi,bmi2,lzcnt,popcnt")))
#endif

namespace cpu {

#ifdef WIDE_AVX2
/// True when the CPU has AVX2, BMI1, BMI2, LZCNT and POPCNT and the system saves the wide registers.
/// Asks the CPU once and keeps the answer.
[[nodiscard]] bool hasAvx2() noexcept;
#endif

}  // namespace cpu

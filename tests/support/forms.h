/// The forms of a kernel, for tests that hold for each of them.
#pragma once

#include <doctest/doctest.h>

#include "wide/cpu.h"

/// Runs statements in which `form` is one form's namespace.
#define IN_FORM(kernel, name, ...)     \
  do {                                 \
    namespace form = kernel::name;     \
    INFO("form: " #kernel "::" #name); \
    __VA_ARGS__;                       \
  } while (false)

/// Does so with the wide form of this platform, where the CPU can run it.
#ifdef WIDE_AVX2
#define IN_WIDE_FORM(kernel, ...) \
  if (cpu::hasAvx2()) IN_FORM(kernel, avx2, __VA_ARGS__)
#elif defined(WIDE_NEON)
#define IN_WIDE_FORM(kernel, ...) \
  if (cpu::hasNeon()) IN_FORM(kernel, neon, __VA_ARGS__)
#else
#define IN_WIDE_FORM(kernel, ...) (void)0
#endif

/// Does so with the plain form, and then with the wide one.
#define IN_EVERY_FORM(kernel, ...)        \
  do {                                    \
    IN_FORM(kernel, scalar, __VA_ARGS__); \
    IN_WIDE_FORM(kernel, __VA_ARGS__);    \
  } while (false)

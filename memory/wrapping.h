/// Arithmetic that is meant modulo 2^n.
#pragma once

#ifdef __clang__
/// Marks a function whose unsigned numbers wrap around on purpose: a range tested by one comparison, the lowest bit of
/// a mask, a carry out of a word, a hash. The checks of integers leave it alone.
#define WRAPPING_FUNCTION __attribute__((no_sanitize("unsigned-integer-overflow")))
#else
#define WRAPPING_FUNCTION
#endif

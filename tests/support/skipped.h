/// Test cases that a platform or its emulator has no means for: they say so by name.
#pragma once

#include <cstdio>
#include <doctest/doctest.h>

namespace testing {

/// Says that the running test case checks nothing here, and why. `./dev test` gathers these lines.
inline void skipped(const char* why) {
  std::printf("skipped here: %s: %s\n", doctest::getContextOptions()->currentTest->m_name, why);
}

}  // namespace testing

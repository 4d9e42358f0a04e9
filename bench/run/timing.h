/// Timing: rounds in which all contenders of a bout take turns, run by Google Benchmark.
#pragma once

#include "bench/run/bout.h"

struct Effort {
  int rounds = 7;
  double secondsEach = 0.004;  ///< of one contender in one round, at least
};

/// Once, before the first bout.
void setUpTiming();

/// Times all contenders of a bout in interleaved rounds.
[[nodiscard]] Result timed(Bout& bout, Effort effort);

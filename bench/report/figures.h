/// How figures are written, on the terminal and in the page alike.
#pragma once

#include <string>

#include "bench/run/result.h"

namespace figures {

/// A time with three significant digits: "48.2 ns", "1.31 µs".
[[nodiscard]] std::string time(double nanoseconds);

/// Bytes of input a second, or of output where there is no input: "12.3 GB/s".
[[nodiscard]] std::string rate(const Result& result, double nanoseconds);

/// A ratio: "3.4×"; a dash for 0.
[[nodiscard]] std::string ratio(double value);

/// A share of memcpy's speed: "0.42 m"; a dash for 0.
[[nodiscard]] std::string share(double value);

}  // namespace figures

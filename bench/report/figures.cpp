#include "bench/report/figures.h"

#include <cstdio>

namespace {

std::string text(const char* format, double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, value);
  return buffer;
}

}  // namespace

std::string figures::time(double nanoseconds) {
  const auto digits = [](double value, const char* unit) {
    return text(value < 10 ? "%.2f" : value < 100 ? "%.1f" : "%.0f", value) + ' ' + unit;
  };
  if (nanoseconds < 1e3) return digits(nanoseconds, "ns");
  if (nanoseconds < 1e6) return digits(nanoseconds / 1e3, "µs");
  return digits(nanoseconds / 1e6, "ms");
}

std::string figures::rate(const Result& result, double nanoseconds) {
  const std::size_t bytes = result.inputBytes != 0 ? result.inputBytes : result.outputBytes;
  if (result.unit != "bytes" || bytes == 0) return "–";
  const double rate = static_cast<double>(bytes) / nanoseconds;
  return text(rate < 10 ? "%.2f" : "%.1f", rate) + " GB/s";
}

std::string figures::ratio(double value) {
  return value == 0 ? "–" : text(value < 10 ? "%.2f" : value < 100 ? "%.1f" : "%.0f", value) + "×";
}

std::string figures::share(double value) { return value == 0 ? "–" : text("%.3f", value) + " m"; }

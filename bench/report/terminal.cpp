#include "bench/report/terminal.h"

#include <cstdio>
#include <unistd.h>

#include "bench/report/figures.h"

namespace {

constexpr const char* kFormat = "  %-22s %16s %10s %5s %9s %10s %8s %8s  %s\n";

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

void Terminal::begin(std::size_t total) { total_ = total; }

void Terminal::working(const std::string& what) {
  ++done_;
  if (isatty(STDERR_FILENO) == 0) return;
  std::fprintf(stderr, "\r\033[K[%zu/%zu] %s", done_, total_, what.c_str());
  std::fflush(stderr);
}

void Terminal::clearProgress() {
  if (isatty(STDERR_FILENO) != 0) std::fprintf(stderr, "\r\033[K");
}

void Terminal::row(const Result& result) {
  clearProgress();
  if (result.job != lastJob_) {
    std::printf("\n%s\n", result.job.c_str());
    std::printf(kFormat, "", "size", "time", "±", "speed", "of memcpy", "kernel", "host", "against the best peer");
    lastJob_ = result.job;
  }
  const Figure& method = result.method();
  const Figure* const kernel = result.find(Kind::kKernel);
  const Figure* const host = result.find(Kind::kHost);
  const Figure* const peer = result.bestPeer();
  const std::string against =
      peer == nullptr ? ""
                      : figures::ratio(result.againstPeer()) + ' ' + peer->name + (result.isBehind() ? "  BEHIND" : "");
  // Fields are padded by bytes: one with a character of two bytes gets one byte less.
  const std::string time = figures::time(method.nanoseconds);
  std::printf(kFormat, result.corpus.c_str(), sizeText(result.size, result.unit).c_str(), time.c_str(),
              text("%.0f%%", 100 * method.spread).c_str(), figures::rate(result, method.nanoseconds).c_str(),
              figures::share(result.againstCopy()).c_str(),
              kernel != nullptr ? figures::time(kernel->nanoseconds).c_str() : "",
              host != nullptr ? figures::time(host->nanoseconds).c_str() : "", against.c_str());
  std::fflush(stdout);
}

void Terminal::note(const std::string& text) {
  clearProgress();
  std::printf("%s\n", text.c_str());
}

void Terminal::behind(std::span<const Result> results) {
  bool any = false;
  for (const Result& result : results) {
    if (!result.isBehind()) continue;
    if (!any) std::printf("\nBehind a peer:\n");
    any = true;
    std::printf("  %-50s %s against %s\n", result.key().c_str(), figures::ratio(result.againstPeer()).c_str(),
                result.bestPeer()->name.c_str());
  }
  if (!any) std::printf("\nNothing timed is behind a peer.\n");
}

#include "bench/report/terminal.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <unistd.h>
#include <vector>

#include "bench/report/figures.h"

namespace {

/// Widths of the columns; the last one is as wide as it gets.
constexpr int kWidths[] = {24, 17, 10, 5, 11, 10, 9, 9};

/// Characters of a text in UTF-8.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

/// The first column is aligned left, the others right.
void printLine(const std::vector<std::string>& columns) {
  std::string line = "  ";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::size_t width = i < std::size(kWidths) ? static_cast<std::size_t>(kWidths[i]) : 0;
    const std::string fill(width > widthOf(columns[i]) ? width - widthOf(columns[i]) : 0, ' ');
    line += i == 0 ? columns[i] + fill : i < std::size(kWidths) ? fill + columns[i] : "  " + columns[i];
  }
  std::printf("%s\n", line.c_str());
}

std::string timeOf(const Figure* figure) { return figure != nullptr ? figures::time(figure->nanoseconds) : ""; }

}  // namespace

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
    printLine({"", "size", "time", "±", "speed", "of memcpy", "kernel", "host", "against the best peer"});
    lastJob_ = result.job;
  }
  const Figure& method = result.method();
  const Figure* const peer = result.bestPeer();
  const std::string against =
      peer == nullptr ? ""
                      : figures::ratio(result.againstPeer()) + ' ' + peer->name + (result.isBehind() ? "  BEHIND" : "");
  printLine({result.corpus, sizeText(result.size, result.unit), figures::time(method.nanoseconds),
             std::to_string(std::lround(100 * method.spread)) + '%', figures::rate(result, method.nanoseconds),
             figures::share(result.againstCopy()), timeOf(result.find("kernel")), timeOf(result.find(Kind::kHost)),
             against});
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

#include "bench/report/page.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <vector>

#include "bench/report/bars.h"
#include "bench/report/figures.h"
#include "bench/report/machine.h"
#include "bench/report/targets.h"

namespace {

/// The sizes that stand for long and short calls; a case of other sizes shows its last and its first.
constexpr std::size_t kLong = 65536;
constexpr std::size_t kShort = 20;

/// The results of one job on one corpus, in the order of their sizes.
struct Row {
  std::string group;
  std::string job;
  std::string corpus;
  std::vector<const Result*> sizes;

  [[nodiscard]] const Result& at(std::size_t size, const Result* otherwise) const {
    const auto found = std::ranges::find(sizes, size, &Result::size);
    return found != sizes.end() ? **found : *otherwise;
  }
  [[nodiscard]] const Result& longest() const { return at(kLong, sizes.back()); }
  [[nodiscard]] const Result& shortest() const { return at(kShort, sizes.front()); }
};

std::vector<Row> rowsOf(std::span<const Result> results) {
  std::vector<Row> rows;
  for (const Result& result : results) {
    if (rows.empty() || rows.back().job != result.job || rows.back().corpus != result.corpus) {
      rows.push_back({result.group, result.job, result.corpus, {}});
    }
    rows.back().sizes.push_back(&result);
  }
  return rows;
}

std::string heading() {
  const Machine machine = thisMachine();
  const std::string missing = missingPeers();
  return "# Speed\n\n"
         "Measured by `./dev bench` on " +
         machine.date + ", on " + machine.cpu + ", built with " + machine.compiler +
         ". This page is written by the suite; figures are medians of interleaved rounds, in CPU time.\n\n"
         "A call goes through the loaded plugin, in a lean host that keeps the converted forms of its strings. A peer "
         "is hosted the same way: it opens the arguments and builds its result through the same bridge, and × is our "
         "speed against the quickest peer for the job; one whose answer is more than a tenth shorter than ours left "
         "work "
         "undone and doesn't count. *m* is the share of `memcpy`'s speed over the same input, "
         "*host* what opening and building alone cost, *kernel* the bare function without a host, and *plain* its "
         "twin without wide registers.\n\n" +
         (missing.empty() ? std::string() : "Peers that were not there: " + missing + ".\n\n");
}

std::string behindSection(std::span<const Result> results) {
  std::string lines;
  for (const Result& result : results) {
    if (!result.isBehind()) continue;
    lines += "| " + result.job + " | " + result.corpus + " | " + sizeText(result.size, result.unit) + " | " +
             figures::ratio(result.againstPeer()) + " | " + result.bestPeer()->name + " | " + result.bestPeer()->rule +
             " | " + reasonFor(result) + " |\n";
  }
  if (lines.empty()) return "Nothing that was timed is behind a peer.\n\n";
  return "## Behind a peer\n\n| Job | Input | Size | × | Peer | Its rule | Reason |\n|---|---|--:|--:|---|---|---|\n" +
         lines + "\n";
}

std::string cell(const Figure* figure) { return figure != nullptr ? figures::time(figure->nanoseconds) : ""; }

std::string tableLine(const Row& row) {
  const Result& longest = row.longest();
  const Result& shortest = row.shortest();
  const Figure* const peer = longest.bestPeer();
  return "| " + row.job + ": " + row.corpus + " | " + figures::time(shortest.method().nanoseconds) + " | " +
         cell(shortest.find(Kind::kHost)) + " | " + figures::ratio(shortest.againstPeer()) + " | " +
         figures::time(longest.method().nanoseconds) + " | " + figures::rate(longest, longest.method().nanoseconds) +
         " | " + figures::share(longest.againstCopy()) + " | " + cell(longest.find("kernel")) + " | " +
         cell(longest.find("plain")) + " | " + figures::ratio(longest.againstPeer()) + " | " +
         (peer != nullptr ? peer->name : "") + " |\n";
}

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
  return text;
}

void writeChart(const std::filesystem::path& file, const std::string& group, std::span<const Row> rows) {
  std::vector<Bar> bars;
  for (const Row& row : rows) {
    const Bar bar{row.job + ": " + row.corpus, row.longest().againstPeer(), row.shortest().againstPeer()};
    if (row.group == group && (bar.longRatio > 0 || bar.shortRatio > 0)) bars.push_back(bar);
  }
  std::ofstream(file) << barChart(group + ": speed against the best peer", "long", "short", bars);
}

std::string rulesSection(std::span<const Result> results) {
  std::map<std::string, std::string> rules;
  for (const Result& result : results) {
    for (const Figure& figure : result.figures) {
      if (!figure.rule.empty()) rules["| " + result.job + " | " + figure.name + " | "] = figure.rule + " |\n";
    }
  }
  std::string lines;
  for (const auto& [peer, rule] : rules) lines += peer + rule;
  return "## Where a peer's rule differs\n\nAnswers were compared before anything was timed. Peers that aren't named "
         "here gave ours, byte for byte.\n\n| Job | Peer | Its answers |\n|---|---|---|\n" +
         lines + "\n";
}

}  // namespace

void writePage(const std::filesystem::path& folder, std::span<const Result> results, const std::string& appendix) {
  const std::vector<Row> rows = rowsOf(results);
  std::filesystem::create_directories(folder / "speed");
  std::ofstream page(folder / "speed.md");
  page << heading() << behindSection(results) << targetsSection(results);
  std::string group;
  for (const Row& row : rows) {
    if (row.group != group) {
      group = row.group;
      const std::string chart = "speed/" + lowerCase(group) + ".svg";
      writeChart(folder / chart, group, rows);
      page << "\n## " << group << "\n\n![Speed against the best peer](" << chart << ")\n\n"
           << "| Case | short | host | × | long | speed | m | kernel | plain | × | best peer |\n"
           << "|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|---|\n";
    }
    page << tableLine(row);
  }
  page << "\nShort is 20 bytes, long 64 KiB; distances are between 8 and between 10,000 characters.\n\n"
       << rulesSection(results) << appendix;
}

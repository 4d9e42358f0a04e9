#include "stringhost/reference.h"

#include <algorithm>

namespace stringhost {
namespace {

constexpr std::string_view kHeading = "## ";
constexpr std::string_view kFence = "```";
constexpr std::string_view kEscaped = "_*`[]|<>#";  ///< what a backslash keeps from being a mark
constexpr std::string_view kBold = "\x1B[1m";
constexpr std::string_view kPlain = "\x1B[0m";

/// Takes the first line off a text.
std::string_view takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

/// The lines of the first "xojo" block.
std::vector<std::string_view> declarationsIn(std::string_view text) {
  std::vector<std::string_view> declarations;
  bool isInside = false;
  while (!text.empty()) {
    const std::string_view line = takeLine(text);
    if (isInside && line.starts_with(kFence)) break;
    if (isInside && !line.empty()) declarations.push_back(line);
    if (line == "```xojo") isInside = true;
  }
  return declarations;
}

/// Text without the marks of code, emphasis and links. Code is left as it is but for its marks.
std::string unmarked(std::string_view line, bool coloured) {
  std::string out;
  bool isCode = false;
  bool isStrong = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const char c = line[at];
    const std::size_t link =
        !isCode && c == ']' && line.substr(at + 1).starts_with("(") ? line.find(')', at) : line.npos;
    if (c == '`') {
      isCode = !isCode;
      if (coloured) out += isCode ? kBold : kPlain;
    } else if (!isCode && line.substr(at).starts_with("**")) {
      isStrong = !isStrong;
      if (coloured) out += isStrong ? kBold : kPlain;
      ++at;
    } else if (!isCode && c == '\\' && at + 1 < line.size() && kEscaped.find(line[at + 1]) != kEscaped.npos) {
      out += line[++at];
    } else if (link != line.npos) {
      at = link;
    } else if (isCode || (c != '*' && !(c == '[' && line.find("](", at) != line.npos))) {
      out += c;
    }
  }
  return out;
}

/// The cells of a row of a table.
std::vector<std::string> cellsOf(std::string_view row) {
  std::vector<std::string> cells;
  row.remove_prefix(1);
  std::string cell;
  for (std::size_t at = 0; at < row.size(); ++at) {
    if (row[at] == '\\' && at + 1 < row.size() && row[at + 1] == '|') {
      cell += row[++at];
    } else if (row[at] == '|') {
      const std::size_t first = cell.find_first_not_of(' ');
      cells.push_back(first == cell.npos ? "" : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
      cell.clear();
    } else {
      cell += row[at];
    }
  }
  return cells;
}

/// How many columns a text takes on a terminal, where each character takes one.
std::size_t widthOf(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// A table, its columns aligned; the rule under its head is left out.
std::string tableOf(const std::vector<std::string_view>& rows, bool coloured) {
  std::vector<std::vector<std::string>> cells;
  std::vector<std::size_t> widths;
  for (const std::string_view row : rows) {
    if (row.starts_with("|--") || row.starts_with("| --") || row.starts_with("|:-")) continue;
    cells.push_back(cellsOf(row));
    widths.resize(std::max(widths.size(), cells.back().size()));
    for (std::size_t column = 0; column < cells.back().size(); ++column) {
      widths[column] = std::max(widths[column], widthOf(unmarked(cells.back()[column], false)));
    }
  }
  std::string out;
  for (const auto& row : cells) {
    std::string line = "  ";
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += unmarked(row[column], coloured);
      const bool isLast = column + 1 == row.size();
      if (!isLast) line.append(widths[column] - widthOf(unmarked(row[column], false)) + 2, ' ');
    }
    out += line + '\n';
  }
  return out;
}

}  // namespace

std::vector<Entry> referenceEntries() {
  std::vector<Entry> entries;
  for (std::string_view page : referencePages()) {
    bool isEntry = false;
    bool isCode = false;
    while (!page.empty()) {
      const char* const begin = page.data();
      const std::string_view line = takeLine(page);
      if (line.starts_with(kFence)) isCode = !isCode;
      if (!isCode && line.starts_with(kHeading)) {
        entries.push_back({line.substr(kHeading.size()), {}, {page.data(), 0}});
        isEntry = true;
      } else if (isEntry) {
        std::string_view& text = entries.back().text;
        text = {text.data(), static_cast<std::size_t>(begin - text.data()) + line.size()};
      }
    }
  }
  for (Entry& entry : entries) entry.declarations = declarationsIn(entry.text);
  std::erase_if(entries, [](const Entry& entry) { return entry.declarations.empty(); });
  return entries;
}

std::string rendered(const Entry& entry, bool coloured) {
  std::string out = coloured ? std::string(kBold).append(entry.name).append(kPlain) : std::string(entry.name);
  out += '\n';
  bool isCode = false;
  std::vector<std::string_view> table;
  std::string_view text = entry.text;
  while (!text.empty()) {
    const std::string_view line = takeLine(text);
    const bool isRow = !isCode && line.starts_with("|");
    if (isRow) table.push_back(line);
    if (!isRow && !table.empty()) {
      out += tableOf(table, coloured);
      table.clear();
    }
    if (isRow) continue;
    if (line.starts_with(kFence)) {
      isCode = !isCode;
    } else if (isCode) {
      out += line.empty() ? "\n" : std::string("    ").append(line) + '\n';
    } else {
      const bool isHeading = line.starts_with('#');
      const std::size_t first = isHeading ? std::min(line.find_first_not_of("# "), line.size()) : 0;
      const std::string shown = unmarked(line.substr(first), coloured);
      out += (isHeading && coloured ? std::string(kBold).append(shown).append(kPlain) : shown) + '\n';
    }
  }
  return out + (table.empty() ? std::string() : tableOf(table, coloured));
}

}  // namespace stringhost

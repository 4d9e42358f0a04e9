/// Markdown, as far as checking it goes: headings, fenced blocks, and the lines between these.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace docs {

struct Line {
  int number;  ///< from 1
  std::string text;
};

/// A block between fences. Its lines are as they stand in the file.
struct FencedBlock {
  std::string kind;     ///< what follows the opening fence, "console" for example
  std::string heading;  ///< the second-level heading above it; empty where there is none
  std::vector<Line> lines;
};

struct Page {
  std::vector<Line> headings;  ///< of the second level
  std::vector<FencedBlock> blocks;
  std::map<std::string, std::vector<std::string>> prose;  ///< the lines outside of blocks, by the heading above them
};

[[nodiscard]] Page readPage(std::string_view markdown);

}  // namespace docs

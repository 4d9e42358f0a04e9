#include "tests/docs/coverage.h"

#include <algorithm>
#include <set>

namespace docs {
namespace {

/// A declaration's name: what stands before the parenthesis.
std::string nameOf(const std::string& declaration) { return declaration.substr(0, declaration.find('(')); }

/// The first block that declares what the heading says; null where there is none.
const FencedBlock* declarationOf(const Page& page, const std::string& heading) {
  const auto found = std::find_if(page.blocks.begin(), page.blocks.end(), [&](const FencedBlock& block) {
    return block.kind == "xojo" && block.heading == heading;
  });
  return found == page.blocks.end() ? nullptr : &*found;
}

}  // namespace

std::vector<std::string> differences(const std::map<std::string, Page>& pages,
                                     const std::vector<std::string>& registered) {
  std::vector<std::string> lines;
  std::set<std::string> documented;
  const std::set<std::string> expected(registered.begin(), registered.end());
  for (const auto& [name, page] : pages) {
    for (const Line& heading : page.headings) {
      const std::string place = name + ":" + std::to_string(heading.number) + ": ";
      const FencedBlock* block = declarationOf(page, heading.text);
      if (block == nullptr) {
        lines.push_back(place + heading.text + " has no declaration");
        continue;
      }
      for (const Line& line : block->lines) {
        const std::string& declaration = line.text;
        const std::string at = name + ":" + std::to_string(line.number) + ": ";
        if (nameOf(declaration) != heading.text) lines.push_back(at + "declared below another heading: " + declaration);
        if (!expected.contains(declaration)) lines.push_back(at + "not registered: " + declaration);
        if (!documented.insert(declaration).second) lines.push_back(at + "documented twice: " + declaration);
      }
    }
  }
  for (const std::string& declaration : expected) {
    if (!documented.contains(declaration)) lines.push_back("not documented: " + declaration);
  }
  return lines;
}

}  // namespace docs

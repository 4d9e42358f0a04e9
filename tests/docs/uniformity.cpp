#include "tests/docs/uniformity.h"

#include <algorithm>

#include "standin/declaration.h"

namespace docs {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kFacts[] = {"Reads", "Gives", "Empty input", "Malformed input", "Failures", "Limits", "Cost"};

/// A language's name, and the kind of its blocks.
constexpr std::pair<const char*, const char*> kLanguages[] = {
    {"PHP", "php"}, {"Python", "python"}, {"JavaScript", "js"}};

std::string labelOf(const std::string& name) { return "**" + name + ":** "; }

/// What the lines of an entry begin with, in their order.
Lines labels() {
  Lines all = {"| Parameter | Default | Meaning |", "### Facts"};
  for (const char* fact : kFacts) all.push_back("- " + labelOf(fact));
  all.insert(all.end(), {"### Examples", "Odd input", "### Other languages"});
  for (const auto& [name, kind] : kLanguages) all.push_back(labelOf(name));
  return all;
}

/// A section, and what is missing in it.
struct Section {
  std::string name;
  const Lines& prose;
  std::vector<const FencedBlock*> blocks;
  Lines missing;

  [[nodiscard]] bool hasLine(const std::string& start) const {
    return std::any_of(prose.begin(), prose.end(), [&](const std::string& line) { return line.starts_with(start); });
  }

  [[nodiscard]] Lines linesOf(const std::string& kind) const {
    Lines lines;
    for (const FencedBlock* block : blocks) {
      if (block->kind != kind) continue;
      for (const Line& line : block->lines) lines.push_back(line.text);
    }
    return lines;
  }

  void require(bool isThere, const std::string& what) {
    if (!isThere) missing.push_back(name + " lacks " + what);
  }
};

void checkLabels(Section& section) {
  auto at = section.prose.begin();
  for (const std::string& label : labels()) {
    const auto found = std::find_if(at, section.prose.end(), [&](const auto& line) { return line.starts_with(label); });
    section.require(found != section.prose.end(), "in its place: " + label);
    if (found != section.prose.end()) at = found + 1;
  }
}

/// Whether there is a row of one or more parameters, among them this one.
bool hasRow(const Lines& prose, const standin::Parameter& parameter) {
  const std::string name = "`" + parameter.name + "`";
  const std::string cell = parameter.defaultValue ? " | `" + *parameter.defaultValue + "` | " : " | | ";
  return std::any_of(prose.begin(), prose.end(), [&](const std::string& row) {
    const std::size_t end = row.find(" | ");
    return row.starts_with("| `") && row.find(name) < end && row.substr(end).starts_with(cell);
  });
}

void checkParameters(Section& section) {
  bool takesText = false;
  for (const std::string& line : section.linesOf("xojo")) {
    const auto declaration = standin::parseDeclaration(line);
    section.require(declaration.has_value(), "a declaration that can be read");
    if (!declaration) continue;
    for (const standin::Parameter& parameter : declaration->parameters) {
      section.require(hasRow(section.prose, parameter), "a row with its default: " + parameter.name);
      takesText |= parameter.type == standin::Type::kString || parameter.type == standin::Type::kMemoryBlock;
    }
  }
  if (!takesText) return;
  const Lines lines = section.linesOf("console");
  const bool isBeyond = std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
    return line.starts_with("$ ") && std::any_of(line.begin(), line.end(), [](char c) { return (c & 0x80) != 0; });
  });
  section.require(section.hasLine("Beyond ASCII") && isBeyond, "an example beyond ASCII");
}

void checkExamples(Section& section) {
  const Lines lines = section.linesOf("console");
  const auto calls = std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return line.starts_with("$ ") && line.find(" " + section.name + " ") != line.npos;
  });
  section.require(calls >= 3, "three examples");
  for (const auto& [name, kind] : kLanguages) {
    const bool isThere = section.hasLine(labelOf(name) + "no near function") || !section.linesOf(kind).empty();
    section.require(isThere, std::string("an example of ") + kind);
  }
}

}  // namespace

Lines missingParts(const std::map<std::string, Page>& pages) {
  Lines missing;
  for (const auto& [name, page] : pages) {
    for (const Line& heading : page.headings) {
      static const Lines kNone;
      const auto prose = page.prose.find(heading.text);
      Section section{heading.text, prose == page.prose.end() ? kNone : prose->second, {}, {}};
      for (const FencedBlock& block : page.blocks) {
        if (block.heading == heading.text) section.blocks.push_back(&block);
      }
      for (const auto check : {checkLabels, checkParameters, checkExamples}) check(section);
      missing.insert(missing.end(), section.missing.begin(), section.missing.end());
    }
  }
  return missing;
}

std::string summaryOf(const Page& page, const std::string& method) {
  const auto prose = page.prose.find(method);
  return prose == page.prose.end() ? "" : prose->second.front();
}

}  // namespace docs

#include "stringhost/reference_command.h"

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "stringhost/nearest.h"
#include "stringhost/output.h"
#include "stringhost/reference.h"
#include "stringhost/streams.h"
#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

nlohmann::ordered_json jsonOf(const Entry& entry) {
  return {{"name", entry.name}, {"declarations", entry.declarations}, {"text", entry.text}};
}

std::vector<std::string> namesOf(const std::vector<Entry>& entries) {
  std::vector<std::string> names;
  for (const Entry& entry : entries) names.emplace_back(entry.name);
  return names;
}

}  // namespace

bool wantsColour() {
  const char* const refused = std::getenv("NO_COLOR");
  return (refused == nullptr || *refused == '\0') && !isDumbTerminal();
}

void showReference(std::ostream& out, const std::string& method, bool asJson, bool terminal) {
  const std::vector<Entry> entries = referenceEntries();
  if (asJson && method.empty()) {
    nlohmann::ordered_json all = nlohmann::ordered_json::array();
    for (const Entry& entry : entries) all.push_back(jsonOf(entry));
    out << dumped(all, terminal) << '\n';
    return;
  }
  const auto found =
      std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) { return isSameName(entry.name, method); });
  if (found == entries.end()) refuseUnknown("method", method, namesOf(entries), "stringhost list shows all");
  if (asJson) {
    out << dumped(jsonOf(*found), terminal) << '\n';
  } else {
    out << rendered(*found, terminal && wantsColour());
  }
}

}  // namespace stringhost

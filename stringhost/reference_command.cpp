#include "stringhost/reference_command.h"

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>
#include <vector>

#include "stringhost/nearest.h"
#include "stringhost/output.h"
#include "stringhost/reference.h"
#include "stringhost/usage_error.h"

namespace stringhost {

bool wantsColour() {
  const char* const refused = std::getenv("NO_COLOR");
  const char* const kind = std::getenv("TERM");
  return (refused == nullptr || *refused == '\0') && (kind == nullptr || std::string_view(kind) != "dumb");
}

void showReference(std::ostream& out, const std::string& method, bool asJson, bool coloured) {
  std::vector<std::string> names;
  for (const Entry& entry : referenceEntries()) {
    names.emplace_back(entry.name);
    if (!isSameName(entry.name, method)) continue;
    if (asJson) {
      const nlohmann::ordered_json json = {
          {"name", entry.name}, {"declarations", entry.declarations}, {"text", entry.text}};
      out << dumped(json) << '\n';
    } else {
      out << rendered(entry, coloured);
    }
    if (!out.flush()) throw UsageError("the entry cannot be written");
    return;
  }
  throw UsageError("no such method: " + method, hintFor(method, names));
}

}  // namespace stringhost

#include "stringhost/list.h"

#include <algorithm>
#include <cctype>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>

namespace stringhost {
namespace {

using nlohmann::ordered_json;

bool isSame(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

/// Matches the whole name: "*" is any characters, "?" is one.
bool matchesWhole(std::string_view name, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t star = std::string_view::npos;
  std::size_t resume = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      resume = at;
    } else if (in < pattern.size() && (pattern[in] == '?' || isSame(pattern[in], name[at]))) {
      ++in;
      ++at;
    } else if (star != std::string_view::npos) {
      in = star + 1;
      at = ++resume;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

bool matches(std::string_view name, std::string_view pattern) {
  if (pattern.find_first_of("*?") != std::string_view::npos) return matchesWhole(name, pattern);
  return std::search(name.begin(), name.end(), pattern.begin(), pattern.end(), isSame) != name.end() || pattern.empty();
}

ordered_json described(const standin::Method& method) {
  ordered_json parameters = ordered_json::array();
  for (const standin::Parameter& parameter : method.declaration.parameters) {
    ordered_json described = {{"name", parameter.name}, {"type", standin::nameOf(parameter.type)}};
    if (parameter.defaultValue) described["default"] = *parameter.defaultValue;
    parameters.push_back(std::move(described));
  }
  return {{"name", method.declaration.name},
          {"declaration", method.entry.declaration},
          {"parameters", std::move(parameters)},
          {"result", standin::nameOf(method.declaration.result)}};
}

}  // namespace

std::vector<std::string> namesOf(const standin::Session& session) {
  std::vector<std::string> names;
  for (const standin::Method& method : session.methods()) names.push_back(method.declaration.name);
  return names;
}

bool list(std::ostream& out, const standin::Session& session, const std::string& pattern, bool asJson) {
  ordered_json json = ordered_json::array();
  bool isAny = false;
  for (const standin::Method& method : session.methods()) {
    if (!matches(method.declaration.name, pattern)) continue;
    isAny = true;
    if (asJson) {
      json.push_back(described(method));
    } else {
      out << method.entry.declaration << '\n';
    }
  }
  if (asJson && isAny) out << json.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
  return isAny;
}

}  // namespace stringhost

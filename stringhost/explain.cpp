#include "stringhost/explain.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "stringhost/output.h"

namespace stringhost {
namespace {

using nlohmann::ordered_json;
using standin::ServiceCall;

/// References on one argument; an argument lives on its caller's references, so that the two are equal in the end.
struct References {
  std::string thing;
  int taken = 0;
  int dropped = 0;
};

bool isLock(const ServiceCall& call) { return call.service == "REALLockString" || call.service == "REALLockObject"; }

bool isUnlock(const ServiceCall& call) {
  return call.service == "REALUnlockString" || call.service == "REALUnlockObject" ||
         call.service == "PluginDisposeStringData";
}

/// A form of a string is asked for as it is stored, or in an encoding.
bool asksForForm(const ServiceCall& call) {
  constexpr const char* kServices[] = {"StringGetCString", "PluginGetStringData", "REALConvertString",
                                       "memoryBlockGetPtr"};
  return std::find(std::begin(kServices), std::end(kServices), call.service) != std::end(kServices);
}

std::string formOf(const ServiceCall& call) {
  return (call.thing.empty() ? "null" : call.thing) + " " +
         (call.encoding ? "in " + encodingName(*call.encoding) : std::string("as it is stored"));
}

std::vector<References> referencesOf(const std::vector<ServiceCall>& calls) {
  std::vector<References> all;
  const auto of = [&](const std::string& thing) -> References& {
    const auto found = std::find_if(all.begin(), all.end(), [&](const References& r) { return r.thing == thing; });
    return found != all.end() ? *found : all.emplace_back(References{thing, 0, 0});
  };
  for (const ServiceCall& call : calls) {
    if (!call.made.empty()) ++of(call.made).taken;
    if (isLock(call) && !call.thing.empty()) ++of(call.thing).taken;
    if (isUnlock(call) && !call.thing.empty()) ++of(call.thing).dropped;
  }
  return all;
}

/// A name, or null where there is none.
ordered_json orNull(const std::string& name) { return name.empty() ? ordered_json() : ordered_json(name); }

ordered_json encodingOrNull(const ServiceCall& call) {
  return call.encoding ? ordered_json(encodingName(*call.encoding)) : ordered_json();
}

ordered_json asJsonObject(const standin::Method& method, const std::vector<standin::Argument>& arguments,
                          const standin::Outcome& outcome) {
  const auto& parameters = method.declaration.parameters;
  ordered_json json = {{"method", method.declaration.name}, {"declaration", method.entry.declaration}};
  json["arguments"] = ordered_json::array();
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    ordered_json argument = {{"name", parameters[index].name}};
    argument.update(jsonOf(arguments[index]));
    json["arguments"].push_back(std::move(argument));
  }
  json["lookups"] = outcome.lookups;
  json["services"] = ordered_json::array();
  json["forms"] = ordered_json::array();
  for (const ServiceCall& call : outcome.calls) {
    json["services"].push_back({{"service", call.service},
                                {"thing", orNull(call.thing)},
                                {"encoding", encodingOrNull(call)},
                                {"made", orNull(call.made)}});
    if (asksForForm(call)) {
      json["forms"].push_back({{"thing", orNull(call.thing)}, {"encoding", encodingOrNull(call)}});
    }
  }
  json["references"] = ordered_json::array();
  for (const References& r : referencesOf(outcome.calls)) {
    json["references"].push_back({{"thing", r.thing}, {"taken", r.taken}, {"dropped", r.dropped}});
  }
  json["result"] = jsonOf(outcome, method.declaration.result);
  json["violations"] = outcome.violations;
  return json;
}

/// One heading and its indented lines, "none" where there are none.
void section(std::ostream& out, const char* heading, const std::vector<std::string>& lines) {
  out << heading << '\n';
  for (const std::string& line : lines) out << "  " << line << '\n';
  if (lines.empty()) out << "  none\n";
}

std::string resultLine(const standin::Outcome& outcome) {
  std::string line = described(outcome.result);
  if (outcome.sameAsArgument >= 0) {
    line += ", argument " + std::to_string(outcome.sameAsArgument + 1) + " itself";
  } else if (isThing(outcome.result)) {
    line += ", new";
  }
  return line;
}

}  // namespace

void explain(std::ostream& out, const standin::Method& method, const std::vector<standin::Argument>& arguments,
             const standin::Outcome& outcome, bool asJson, bool terminal) {
  if (asJson) {
    out << dumped(asJsonObject(method, arguments, outcome), terminal) << '\n';
    return;
  }
  out << method.entry.declaration << "\n\n";
  std::vector<std::string> lines;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    lines.push_back(std::to_string(index + 1) + " " + method.declaration.parameters[index].name + ": " +
                    described(arguments[index]));
  }
  section(out, "Arguments", lines);
  section(out, "Looked up", outcome.lookups);

  lines.clear();
  std::vector<std::string> forms;
  for (const ServiceCall& call : outcome.calls) {
    std::string line = call.service;
    if (!call.thing.empty()) line += ", " + call.thing;
    if (call.encoding) line += ", " + encodingName(*call.encoding);
    if (!call.made.empty()) line += " -> " + call.made;
    lines.push_back(line);
    if (asksForForm(call)) forms.push_back(formOf(call));
  }
  section(out, "Services called", lines);
  section(out, "Forms asked for", forms);

  lines.clear();
  for (const References& r : referencesOf(outcome.calls)) {
    lines.push_back(r.thing + ": " + std::to_string(r.taken) + " taken, " + std::to_string(r.dropped) + " dropped" +
                    (r.thing == "result" ? ", the one left is the caller's" : ""));
  }
  section(out, "References", lines);
  section(out, "Result",
          {outcome.exception ? "none, " + outcome.exception->className + " was raised" : resultLine(outcome)});
}

}  // namespace stringhost

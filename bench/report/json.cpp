#include "bench/report/json.h"

#include <fstream>
#include <nlohmann/json.hpp>

#include "bench/report/machine.h"

namespace {

const char* nameOf(Kind kind) {
  switch (kind) {
    case Kind::kMethod:
      return "method";
    case Kind::kKernel:
      return "kernel";
    case Kind::kPeer:
      return "peer";
    case Kind::kHost:
      return "host";
    case Kind::kCopyInput:
      return "copy of input";
    case Kind::kCopyBoth:
      return "copy of input and output";
    case Kind::kScan:
      return "read";
  }
  return "";
}

nlohmann::json figure(const Figure& figure) {
  nlohmann::json json{
      {"name", figure.name}, {"kind", nameOf(figure.kind)}, {"ns", figure.nanoseconds}, {"spread", figure.spread}};
  if (!figure.rule.empty()) json["differs"] = figure.rule;
  if (!figure.counts) json["does less"] = true;
  return json;
}

}  // namespace

void writeJson(const std::filesystem::path& file, std::span<const Result> results) {
  const Machine machine = thisMachine();
  nlohmann::json json{
      {"date", machine.date}, {"cpu", machine.cpu}, {"compiler", machine.compiler}, {"missing peers", missingPeers()}};
  for (const Result& result : results) {
    nlohmann::json row{{"group", result.group},
                       {"job", result.job},
                       {"corpus", result.corpus},
                       {"size", result.size},
                       {"unit", result.unit},
                       {"input bytes", result.inputBytes},
                       {"output bytes", result.outputBytes}};
    for (const Figure& each : result.figures) row["figures"].push_back(figure(each));
    json["results"].push_back(std::move(row));
  }
  std::ofstream(file) << json.dump(1) << '\n';
}

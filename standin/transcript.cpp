#include "standin/transcript.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace standin {
namespace {

class Names {
 public:
  Names(const std::vector<const Counted*>& arguments, const Counted* result) : arguments_(arguments), result_(result) {}

  std::string operator()(const Counted* thing) {
    if (thing == nullptr) return {};
    const auto argument = std::find(arguments_.begin(), arguments_.end(), thing);
    if (argument != arguments_.end()) return "argument " + std::to_string(argument - arguments_.begin() + 1);
    if (thing == result_) return "result";
    constexpr const char* kKinds[] = {"string ", "object ", "record "};
    const auto kind = static_cast<std::size_t>(thing->kind());
    std::vector<const Counted*>& known = others_.at(kind);
    auto found = std::find(known.begin(), known.end(), thing);
    if (found == known.end()) found = known.insert(found, thing);
    return kKinds[kind] + std::to_string(found - known.begin() + 1);
  }

 private:
  const std::vector<const Counted*>& arguments_;
  const Counted* result_;
  std::array<std::vector<const Counted*>, 3> others_;
};

}  // namespace

std::vector<ServiceCall> transcript(const std::vector<ServiceUse>& uses, const std::vector<const Counted*>& arguments,
                                    const Counted* result) {
  Names names(arguments, result);
  std::vector<ServiceCall> calls;
  calls.reserve(uses.size());
  for (const ServiceUse& use : uses) {
    calls.push_back({nameOf(use.service), names(use.thing), names(use.made), use.encoding});
  }
  return calls;
}

}  // namespace standin

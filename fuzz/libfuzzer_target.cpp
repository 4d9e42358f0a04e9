/// The fuzzer of one method, named by `--method=NAME`; what else libFuzzer takes goes to libFuzzer. `--each=COUNT`
/// stands for as many executions as it takes to call each overload COUNT times, as far as can be told before. At its
/// end the fuzzer says how often it called which.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include "fuzz/trial.h"

namespace {

std::string gMethod = "EncodingToHexZQV";
std::map<std::string, long> gCalls;  // by declaration; every overload has its line
std::string gRuns;

/// What is made up is not even among overloads.
double unevenness(std::size_t overloads) { return overloads > 1 ? 1.8 : 1.0; }

void countOverloads() {
  const fuzz::Trial trial = fuzz::readTrial(gMethod, {});
  for (const standin::Method& method : trial.session->methods()) {
    if (method.declaration.name == gMethod) gCalls[method.entry.declaration] = 0;
  }
}

void printCalls() {
  for (const auto& [declaration, count] : gCalls) std::fprintf(stderr, "calls %ld %s\n", count, declaration.c_str());
}

}  // namespace

/// What is freed has to stay apart for one call only, and a long way back to where it was made costs more than it
/// tells.
extern "C" const char* __asan_default_options() { return "quarantine_size_mb=1:malloc_context_size=4"; }

extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments) {
  constexpr std::string_view kMethod = "--method=";
  constexpr std::string_view kEach = "--each=";
  char** each = nullptr;
  for (int i = 1; i < *argumentCount; ++i) {
    const std::string_view argument = (*arguments)[i];
    if (argument.starts_with(kMethod)) gMethod = argument.substr(kMethod.size());
    if (argument.starts_with(kEach)) each = *arguments + i;
  }
  countOverloads();
  if (each != nullptr) {
    const std::size_t overloads = gCalls.size();
    const double runs = std::atof(*each + kEach.size()) * static_cast<double>(overloads) * unevenness(overloads);
    gRuns = "-runs=" + std::to_string(static_cast<long>(runs));
    *each = gRuns.data();
  }
  std::atexit(printCalls);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::Trial trial = fuzz::readTrial(gMethod, {data, size});
  ++gCalls[trial.method->entry.declaration];
  const std::string complaint = fuzz::complaintAbout(trial);
  if (complaint.empty()) return 0;
  std::fprintf(stderr, "%s\n%s\n", complaint.c_str(), fuzz::describe(trial).c_str());
  std::abort();
}

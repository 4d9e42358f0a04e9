/// The fuzzer of one method, named by `--method=NAME`; what else libFuzzer takes goes to libFuzzer.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string_view>

#include "fuzz/trial.h"

namespace {

std::string_view gMethod = "EncodingToHexZQV";

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments) {
  constexpr std::string_view kOption = "--method=";
  for (int i = 1; i < *argumentCount; ++i) {
    const std::string_view argument = (*arguments)[i];
    if (argument.starts_with(kOption)) gMethod = argument.substr(kOption.size());
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::Trial trial = fuzz::readTrial(gMethod, {data, size});
  const std::string complaint = fuzz::complaintAbout(trial);
  if (complaint.empty()) return 0;
  std::fprintf(stderr, "%s\n%s\n", complaint.c_str(), fuzz::describe(trial).c_str());
  std::abort();
}
